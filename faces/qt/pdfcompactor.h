#pragma once

#include <QByteArray>
#include <QFile>
#include <QList>
#include <QString>

namespace pixmo::qt {

/// Copies a PDF file of Qt's print engine and stores its 1-bit pictures as ITU-T T.6, in which they are half
/// as large and smaller. One object at a time is in memory.
class PdfCompactor {
public:
    /// Whether there is a copy; a file of any other form than the engine's gives none.
    static bool copy(const QString& from, const QString& to);

private:
    PdfCompactor(QFile& source, QFile& target) : source_(source), target_(target) {}

    bool run();
    bool readTable();
    QByteArray read(qsizetype offset, qsizetype size) const;
    QByteArray object(qsizetype number) const;
    QByteArray compacted(const QByteArray& object) const;
    bool writeObjects();
    bool writeTable();

    QFile& source_;
    QFile& target_;
    QList<qsizetype> offsets_; ///< by object number, 0 for none
    QList<qsizetype> ends_;
    QList<qsizetype> newOffsets_;
    qsizetype table_ = 0; ///< where the table of offsets begins
    QByteArray trailer_;  ///< what stands behind it, without its own offset
};

} // namespace pixmo::qt
