#include "faces/qt/pdfcompactor.h"

#include "codecs/faxencoder.h"

#include <QCoreApplication>
#include <QtEndian>
#include <algorithm>

namespace pixmo::qt {

namespace {

constexpr qsizetype EntrySize = 20; ///< of a line of the table
constexpr qsizetype LongestDictionary = 400;

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

/// Rows of a picture in which 1 is white become rows in which 1 is black; what is behind the edge stays 0.
void invert(QByteArray& rows, qsizetype width) {
    for (char& bits : rows)
        bits = static_cast<char>(~bits);
    const qsizetype rowSize = (width + 7) / 8;
    const auto mask = static_cast<char>(0xFF << ((8 - width % 8) % 8));
    for (qsizetype last = rowSize - 1; last < rows.size(); last += rowSize)
        rows[last] = static_cast<char>(rows[last] & mask);
}

} // namespace

bool PdfCompactor::copy(const QString& from, const QString& to) {
    QFile source(from);
    QFile target(to);
    if (!source.open(QIODevice::ReadOnly) || !target.open(QIODevice::WriteOnly))
        return false;
    const bool done = PdfCompactor(source, target).run() && target.flush();
    target.close();
    if (!done)
        target.remove();
    return done;
}

bool PdfCompactor::run() {
    return readTable() && writeObjects() && writeTable();
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
    return std::all_of(offsets_.begin(), offsets_.end(),
                       [this](qsizetype offset) { return offset >= 0 && offset < table_; });
}

/// The object with its picture encoded anew; empty where that makes nothing smaller.
QByteArray PdfCompactor::compacted(const QByteArray& object) const {
    const QByteArray head = object.left(LongestDictionary);
    const qsizetype stream = head.indexOf("stream\n");
    const QByteArray dictionary = head.left(stream);
    const qsizetype lengthObject = numberBehind(dictionary, "/Length ");
    if (stream < 0 || !dictionary.contains("/Subtype /Image") ||
        !dictionary.contains("/ColorSpace /DeviceGray") || !dictionary.contains("/BitsPerComponent 1\n") ||
        !dictionary.contains("/Filter /FlateDecode") || lengthObject <= 0 || lengthObject >= offsets_.size())
        return {};
    const qsizetype width = numberBehind(dictionary, "/Width ");
    const qsizetype height = numberBehind(dictionary, "/Height ");
    const qsizetype length = numberBehind(this->object(lengthObject), " obj\n");
    const qsizetype data = stream + 7;
    if (width <= 0 || height <= 0 || length <= 0 || data + length > object.size())
        return {};
    QByteArray sized(4, '\0');
    qToBigEndian<quint32>(static_cast<quint32>((width + 7) / 8 * height), sized.data());
    QByteArray rows = qUncompress(sized + object.mid(data, length));
    if (rows.size() != (width + 7) / 8 * height)
        return {};
    invert(rows, width);
    const auto fax =
        encodeFax4({reinterpret_cast<const uint8_t*>(rows.constData()), static_cast<size_t>(rows.size())},
                   static_cast<int32_t>(width), static_cast<int32_t>(height));
    const auto faxSize = static_cast<qsizetype>(fax.size());
    if (fax.empty() || faxSize >= length)
        return {};
    const QByteArray extent = QByteArray::number(width) + " /Rows " + QByteArray::number(height);
    return object.left(object.indexOf('\n') + 1) + "<<\n/Type /XObject\n/Subtype /Image\n/Width " +
           QByteArray::number(width) + "\n/Height " + QByteArray::number(height) +
           "\n/BitsPerComponent 1\n/ColorSpace /DeviceGray\n/Length " + QByteArray::number(faxSize) +
           "\n/Filter /CCITTFaxDecode\n/DecodeParms << /K -1 /Columns " + extent + " >>\n>>\nstream\n" +
           QByteArray(reinterpret_cast<const char*>(fax.data()), faxSize) + "\nendstream\nendobj\n";
}

// The user interface is kept painted meanwhile; nobody can begin anything else.
bool PdfCompactor::writeObjects() {
    QList<qsizetype> order;
    for (qsizetype number = 0; number < offsets_.size(); ++number)
        if (offsets_[number] > 0)
            order.append(number);
    if (order.isEmpty())
        return false;
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
        written = written && target_.write(chosen) == chosen.size();
        if (!smaller.isEmpty())
            QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents |
                                            QEventLoop::ExcludeSocketNotifiers);
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
