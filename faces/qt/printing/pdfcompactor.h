#pragma once

#include "faces/qt/printing/faxpictures.h"

#include <QByteArray>
#include <QFileDevice>
#include <QList>

namespace pixmo::qt {

/// Copies a PDF file of Qt's print engine and puts, for its 1-bit pictures, the same ones as ITU-T T.6, in
/// which they are half as large and smaller. One object at a time is in memory.
class PdfCompactor {
public:
    /// Whether there is a copy. A file of any other form than the engine's is copied as it is.
    static bool copy(QFileDevice& from, QFileDevice& to, FaxPictures& pictures);

private:
    PdfCompactor(QFileDevice& source, QFileDevice& target, FaxPictures& pictures)
        : source_(source), target_(target), pictures_(pictures) {}

    bool run();
    bool copyAsItIs();
    bool readTable();
    QByteArray read(qsizetype offset, qsizetype size) const;
    QByteArray object(qsizetype number) const;
    QByteArray compacted(const QByteArray& object);
    bool writeObjects();
    bool writeTable();

    QFileDevice& source_;
    QFileDevice& target_;
    FaxPictures& pictures_;
    size_t next_ = 0;          ///< of the pictures
    QList<qsizetype> offsets_; ///< by object number, 0 for none
    QList<qsizetype> ends_;
    QList<qsizetype> newOffsets_;
    qsizetype table_ = 0; ///< where the table of offsets begins
    QByteArray trailer_;  ///< what stands behind it, without its own offset
};

} // namespace pixmo::qt
