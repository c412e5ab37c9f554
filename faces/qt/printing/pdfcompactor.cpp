#include "faces/qt/printing/pdfcompactor.h"

#include <algorithm>

namespace pixmo::qt {

namespace {

constexpr qsizetype EntrySize = 20; ///< of a line of the table
constexpr qsizetype LongestDictionary = 400;
constexpr qsizetype PieceSize = 1 << 20;

/// The whole number behind a key of a dictionary; -1 where there is none.
qsizetype numberBehind(const QByteArray& text, const char* key) {
    const qsizetype at = text.indexOf(key);
    if (at < 0)
        return -1;
    qsizetype begin = at + static_cast<qsizetype>(qstrlen(key));
    while (begin < text.size() && text[begin] == ' ')
        ++begin;
    qsizetype end = begin;
    while (end < text.size() && text[end] >= '0' && text[end] <= '9')
        ++end;
    bool ok = false;
    const qsizetype number = text.mid(begin, end - begin).toLongLong(&ok);
    return ok ? number : -1;
}

bool isBilevelPicture(const QByteArray& dictionary) {
    return dictionary.contains("/Subtype /Image") && dictionary.contains("/ColorSpace /DeviceGray") &&
           dictionary.contains("/BitsPerComponent 1\n");
}

} // namespace

bool PdfCompactor::copy(QFileDevice& from, QFileDevice& to, FaxPictures& pictures) {
    return PdfCompactor(from, to, pictures).run() && to.flush() && to.error() == QFileDevice::NoError;
}

bool PdfCompactor::run() {
    return readTable() ? writeObjects() && writeTable() : copyAsItIs();
}

bool PdfCompactor::copyAsItIs() {
    bool done = source_.seek(0);
    while (done && !source_.atEnd()) {
        const QByteArray piece = source_.read(PieceSize);
        done = !piece.isEmpty() && target_.write(piece) == piece.size();
    }
    return done;
}

QByteArray PdfCompactor::read(qsizetype offset, qsizetype size) const {
    return source_.seek(offset) ? source_.read(size) : QByteArray();
}

QByteArray PdfCompactor::object(qsizetype number) const {
    return read(offsets_[number], ends_[number] - offsets_[number]);
}

bool PdfCompactor::readTable() {
    table_ = numberBehind(read(std::max<qsizetype>(0, source_.size() - 64), 64), "startxref\n");
    const QByteArray rest = table_ > 0 ? read(table_, source_.size() - table_) : QByteArray();
    const qsizetype count = numberBehind(rest.left(40), "xref\n0 ");
    const qsizetype first = rest.indexOf('\n', 5) + 1;
    const qsizetype trailer = first + count * EntrySize;
    const qsizetype end = rest.lastIndexOf("startxref\n");
    if (count <= 0 || trailer >= end || rest.mid(trailer, 7) != "trailer")
        return false;
    trailer_ = rest.mid(trailer, end - trailer);
    for (qsizetype number = 0; number < count; ++number) {
        const QByteArray entry = rest.mid(first + number * EntrySize, EntrySize);
        offsets_.append(entry.mid(17, 1) == "n" ? entry.left(10).toLongLong() : 0);
    }
    QList<qsizetype> starts = offsets_;
    starts.append(table_);
    std::sort(starts.begin(), starts.end());
    for (const qsizetype offset : offsets_)
        ends_.append(*std::upper_bound(starts.begin(), starts.end() - 1, offset));
    const auto isObject = [](qsizetype offset) { return offset > 0; };
    return std::any_of(offsets_.begin(), offsets_.end(), isObject) &&
           std::all_of(offsets_.begin(), offsets_.end(),
                       [this](qsizetype offset) { return offset >= 0 && offset < table_; });
}

/// The object with the next picture in its place; empty where that is not the same one or nothing smaller.
QByteArray PdfCompactor::compacted(const QByteArray& object) {
    const QByteArray head = object.left(LongestDictionary);
    const QByteArray dictionary = head.left(std::max<qsizetype>(head.indexOf("stream\n"), 0));
    if (!isBilevelPicture(dictionary) || next_ == pictures_.count())
        return {};
    const FaxPictures::Picture& picture = pictures_[next_++];
    if (numberBehind(dictionary, "/Width ") != picture.width ||
        numberBehind(dictionary, "/Height ") != picture.height || picture.size >= object.size())
        return {};
    const QByteArray fax = pictures_.bytes(picture);
    if (fax.isEmpty())
        return {};
    const QByteArray width = QByteArray::number(picture.width);
    const QByteArray height = QByteArray::number(picture.height);
    return object.left(object.indexOf('\n') + 1) + "<<\n/Type /XObject\n/Subtype /Image\n/Width " + width +
           "\n/Height " + height + "\n/BitsPerComponent 1\n/ColorSpace /DeviceGray\n/Length " +
           QByteArray::number(fax.size()) + "\n/Filter /CCITTFaxDecode\n/DecodeParms << /K -1 /Columns " +
           width + " /Rows " + height + " >>\n>>\nstream\n" + fax + "\nendstream\nendobj\n";
}

bool PdfCompactor::writeObjects() {
    QList<qsizetype> order;
    for (qsizetype number = 0; number < offsets_.size(); ++number)
        if (offsets_[number] > 0)
            order.append(number);
    std::sort(order.begin(), order.end(),
              [this](qsizetype one, qsizetype other) { return offsets_[one] < offsets_[other]; });
    newOffsets_.fill(0, offsets_.size());
    const qsizetype first = offsets_[order.first()];
    bool written = target_.write(read(0, first)) == first;
    for (const qsizetype number : order) {
        newOffsets_[number] = target_.pos();
        const QByteArray original = object(number);
        const QByteArray smaller = compacted(original);
        const QByteArray& chosen = smaller.isEmpty() ? original : smaller;
        written = written && original.size() == ends_[number] - offsets_[number] &&
                  target_.write(chosen) == chosen.size();
    }
    return written;
}

bool PdfCompactor::writeTable() {
    const qsizetype begin = target_.pos();
    QByteArray table = "xref\n0 " + QByteArray::number(offsets_.size()) + "\n";
    for (const qsizetype offset : newOffsets_)
        table +=
            QByteArray::number(offset).rightJustified(10, '0') + (offset > 0 ? " 00000 n \n" : " 65535 f \n");
    table += trailer_ + "startxref\n" + QByteArray::number(begin) + "\n%%EOF\n";
    return target_.write(table) == table.size();
}

} // namespace pixmo::qt
