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
    PdfCompactor(QByteArray bytes, QFile& target) : bytes_(std::move(bytes)), target_(target) {}

    bool run();
    bool readTable();
    QByteArray object(qsizetype number) const;
    QByteArray compacted(const QByteArray& object) const;
    bool writeObjects();
    bool writeTable();

    QByteArray bytes_; ///< of the file, mapped
    QFile& target_;
    QList<qsizetype> offsets_; ///< by object number, 0 for none
    QList<qsizetype> ends_;
    QList<qsizetype> newOffsets_;
    qsizetype table_ = 0;   ///< where the table of offsets begins
    qsizetype trailer_ = 0; ///< and what follows it
};

} // namespace pixmo::qt
