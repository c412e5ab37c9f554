#include "codecs/tiffsize.h"

#include "codecs/bytereader.h"

namespace pixmo {

namespace {

constexpr uint16_t WidthTag = 256;
constexpr uint16_t HeightTag = 257;
constexpr uint16_t ShortType = 3;

/// Where classic and big files keep things.
struct Shape {
    size_t directoryPointer;
    size_t countSize;
    size_t entrySize;
    size_t valueAt; ///< within an entry
};

constexpr Shape Classic = {4, 2, 12, 8};
constexpr Shape Big = {8, 8, 20, 12};

} // namespace

TiffSize peekTiffSize(std::span<const uint8_t> bytes) {
    TiffSize size;
    if (bytes.size() < 8)
        return size;
    const bool bigEndian = bytes[0] == 'M';
    const ByteReader file(bytes, bigEndian);
    const Shape shape = file.word(2) == 43 ? Big : Classic;
    // A directory beyond 4 GiB reads as garbage here, and the library finds out itself.
    const size_t lowHalf = shape.countSize == 8 && bigEndian ? 4 : 0;
    const size_t directory = file.dword(shape.directoryPointer + lowHalf);
    const size_t entries =
        shape.countSize == 8 ? file.dword(directory + lowHalf) : size_t{file.word(directory)};
    size_t entry = directory + shape.countSize;
    for (size_t i = 0; i < entries && entry + shape.entrySize <= bytes.size();
         ++i, entry += shape.entrySize) {
        const uint16_t tag = file.word(entry);
        const size_t value = entry + shape.valueAt;
        const uint64_t side = file.word(entry + 2) == ShortType ? file.word(value) : file.dword(value);
        if (tag == WidthTag)
            size.width = side;
        else if (tag == HeightTag)
            size.height = side;
    }
    return size;
}

} // namespace pixmo
