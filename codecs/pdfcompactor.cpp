#include "codecs/pdfcompactor.h"

#include <algorithm>
#include <charconv>
#include <numeric>

namespace pixmo {

namespace {

constexpr size_t EntrySize = 20; ///< of a line of the table
constexpr size_t OffsetDigits = 10;
constexpr size_t KindPlace = 17; ///< in a line: "n" for an object that is there
constexpr size_t LongestDictionary = 400;
constexpr int64_t PieceSize = 1 << 20;
constexpr int64_t MostTail = 64;

int64_t numberAt(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
    int64_t number = -1;
    std::from_chars(text.data(), text.data() + text.size(), number);
    return number;
}

/// The whole number behind a key of a dictionary; -1 where there is none.
int64_t numberBehind(std::string_view text, std::string_view key) {
    const size_t at = text.find(key);
    return at == std::string_view::npos ? -1 : numberAt(text.substr(at + key.size()));
}

bool contains(std::string_view text, std::string_view part) {
    return text.find(part) != std::string_view::npos;
}

bool isBilevelPicture(std::string_view dictionary) {
    return contains(dictionary, "/Subtype /Image") && contains(dictionary, "/ColorSpace /DeviceGray") &&
           contains(dictionary, "/BitsPerComponent 1\n");
}

} // namespace

bool PdfCompactor::copy(std::istream& from, const Write& to, FaxPictures& pictures) {
    return PdfCompactor(from, to, pictures).run();
}

bool PdfCompactor::run() {
    return readTable() ? writeObjects() && writeTable() : copyAsItIs();
}

bool PdfCompactor::write(std::string_view bytes) {
    written_ += static_cast<int64_t>(bytes.size());
    return target_(bytes);
}

bool PdfCompactor::copyAsItIs() {
    for (int64_t at = 0;; at += PieceSize) {
        const std::string piece = read(at, PieceSize);
        if (piece.empty())
            return !source_.bad();
        if (!write(piece))
            return false;
    }
}

/// What there is of it.
std::string PdfCompactor::read(int64_t offset, int64_t size) const {
    std::string bytes(static_cast<size_t>(std::max<int64_t>(size, 0)), '\0');
    source_.clear();
    source_.seekg(offset);
    source_.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    bytes.resize(static_cast<size_t>(std::max<std::streamsize>(source_.gcount(), 0)));
    return bytes;
}

bool PdfCompactor::readTable() {
    source_.seekg(0, std::ios::end);
    const auto size = static_cast<int64_t>(source_.tellg());
    table_ = numberBehind(read(std::max<int64_t>(0, size - MostTail), MostTail), "startxref\n");
    if (table_ <= 0 || table_ >= size)
        return false;
    const std::string rest = read(table_, size - table_);
    const int64_t count = numberBehind(std::string_view(rest).substr(0, 40), "xref\n0 ");
    const size_t first = rest.find('\n', 5) + 1;
    const size_t end = rest.rfind("startxref\n");
    if (count <= 0 || end == std::string::npos || first == 0 || first > end ||
        static_cast<uint64_t>(count) > (end - first) / EntrySize)
        return false;
    const size_t trailer = first + static_cast<size_t>(count) * EntrySize;
    if (rest.compare(trailer, 7, "trailer") != 0)
        return false;
    trailer_ = rest.substr(trailer, end - trailer);
    return readEntries(std::string_view(rest).substr(first, trailer - first));
}

bool PdfCompactor::readEntries(std::string_view entries) {
    for (; !entries.empty(); entries.remove_prefix(EntrySize))
        offsets_.push_back(entries[KindPlace] == 'n' ? numberAt(entries.substr(0, OffsetDigits)) : 0);
    std::vector<int64_t> starts = offsets_;
    starts.push_back(table_);
    std::sort(starts.begin(), starts.end());
    for (const int64_t offset : offsets_)
        ends_.push_back(*std::upper_bound(starts.begin(), starts.end() - 1, offset));
    return std::ranges::any_of(offsets_, [](int64_t offset) { return offset > 0; }) &&
           std::ranges::all_of(offsets_, [this](int64_t offset) { return offset >= 0 && offset < table_; });
}

/// The object with the next picture in its place; empty where that is not the same one or nothing smaller.
std::string PdfCompactor::compacted(const std::string& object) {
    const std::string_view head = std::string_view(object).substr(0, LongestDictionary);
    const size_t stream = head.find("stream\n");
    const std::string_view dictionary = head.substr(0, stream == std::string_view::npos ? 0 : stream);
    if (!isBilevelPicture(dictionary) || next_ == pictures_.count())
        return {};
    const FaxPictures::Picture& picture = pictures_[next_++];
    if (numberBehind(dictionary, "/Width ") != picture.width ||
        numberBehind(dictionary, "/Height ") != picture.height || picture.size >= object.size())
        return {};
    const std::string fax = pictures_.bytes(picture);
    if (fax.empty())
        return {};
    const std::string width = std::to_string(picture.width);
    const std::string height = std::to_string(picture.height);
    return object.substr(0, object.find('\n') + 1) + "<<\n/Type /XObject\n/Subtype /Image\n/Width " + width +
           "\n/Height " + height + "\n/BitsPerComponent 1\n/ColorSpace /DeviceGray\n/Length " +
           std::to_string(fax.size()) + "\n/Filter /CCITTFaxDecode\n/DecodeParms << /K -1 /Columns " + width +
           " /Rows " + height + " >>\n>>\nstream\n" + fax + "\nendstream\nendobj\n";
}

bool PdfCompactor::writeObjects() {
    std::vector<size_t> order(offsets_.size());
    std::iota(order.begin(), order.end(), size_t{0});
    std::erase_if(order, [this](size_t number) { return offsets_[number] == 0; });
    std::ranges::sort(order, {}, [this](size_t number) { return offsets_[number]; });
    newOffsets_.assign(offsets_.size(), 0);
    const int64_t first = offsets_[order.front()];
    const std::string head = read(0, first);
    bool done = static_cast<int64_t>(head.size()) == first && write(head);
    for (size_t at = 0; at < order.size() && done; ++at) {
        const size_t number = order[at];
        const int64_t size = ends_[number] - offsets_[number];
        newOffsets_[number] = written_;
        const std::string original = read(offsets_[number], size);
        const std::string smaller = compacted(original);
        done = static_cast<int64_t>(original.size()) == size && write(smaller.empty() ? original : smaller);
    }
    return done;
}

bool PdfCompactor::writeTable() {
    const int64_t begin = written_;
    std::string table = "xref\n0 " + std::to_string(offsets_.size()) + "\n";
    for (const int64_t offset : newOffsets_) {
        const std::string digits = std::to_string(offset);
        table.append(OffsetDigits - std::min(digits.size(), OffsetDigits), '0').append(digits);
        table += offset > 0 ? " 00000 n \n" : " 65535 f \n";
    }
    return write(table + trailer_ + "startxref\n" + std::to_string(begin) + "\n%%EOF\n");
}

} // namespace pixmo
