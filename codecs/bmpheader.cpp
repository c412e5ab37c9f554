#include "codecs/bmpheader.h"

#include "codecs/bytereader.h"
#include "codecs/codecerror.h"
#include "codecs/pixelmath.h"

#include <algorithm>

namespace pixmo {

namespace {

constexpr size_t FileHeaderSize = 14;
constexpr size_t CoreHeaderSize = 12;
constexpr size_t InfoHeaderSize = 40;
constexpr size_t LargestHeaderSize = 124;
constexpr size_t Os2HeaderSize = 64;
constexpr size_t MasksAt = 54; ///< inside the later headers, right behind the 40-byte one

enum Compression : uint32_t { Rgb = 0, Rle8 = 1, Rle4 = 2, BitFields = 3, AlphaBitFields = 6 };

void readCoreHeader(const ByteReader& file, BmpHeader& header) {
    header.width = file.word(18);
    header.height = file.word(20);
    header.bits = file.word(24);
}

void readInfoHeader(const ByteReader& file, BmpHeader& header) {
    const int64_t width = file.signedDword(18);
    const int64_t height = file.signedDword(22);
    if (width < 0)
        throw pictureError("The BMP picture has a negative width.");
    header.width = static_cast<uint64_t>(width);
    header.height = static_cast<uint64_t>(height < 0 ? -height : height);
    header.topDown = height < 0;
    header.bits = file.word(28);
}

void readCoding(uint32_t compression, size_t headerSize, BmpHeader& header) {
    const bool deep = header.bits == 16 || header.bits == 32;
    if (compression == Rle8 && header.bits == 8)
        header.coding = BmpHeader::Coding::RunLength8;
    else if (compression == Rle4 && header.bits == 4)
        header.coding = BmpHeader::Coding::RunLength4;
    else if (compression != Rgb && !(deep && headerSize != Os2HeaderSize &&
                                     (compression == BitFields || compression == AlphaBitFields)))
        throw pictureError("The BMP picture has an unknown compression: " + std::to_string(compression) +
                           " at " + std::to_string(header.bits) + " bits a pixel.");
}

void readMasks(const ByteReader& file, uint32_t compression, BmpHeader& header) {
    if (compression == BitFields || compression == AlphaBitFields)
        header.masks = {file.dword(MasksAt), file.dword(MasksAt + 4), file.dword(MasksAt + 8)};
    else if (header.bits == 16)
        header.masks = {0x7C00, 0x03E0, 0x001F};
    else
        header.masks = {0xFF0000, 0x00FF00, 0x0000FF};
}

void readColours(const ByteReader& file, size_t at, size_t end, size_t entrySize, size_t used,
                 BmpHeader& header) {
    size_t count = size_t{1} << header.bits;
    if (used != 0)
        count = std::min(count, used);
    for (size_t i = 0; i < count && at + entrySize <= end; ++i, at += entrySize)
        header.colours.push_back(packRgb(file.byte(at + 2), file.byte(at + 1), file.byte(at)));
}

void requireKnownDepth(int32_t bits) {
    constexpr std::array Depths = {1, 2, 4, 8, 16, 24, 32};
    if (std::find(Depths.begin(), Depths.end(), bits) == Depths.end())
        throw pictureError("The BMP picture has an unknown depth: " + std::to_string(bits) +
                           " bits a pixel.");
}

} // namespace

BmpHeader readBmpHeader(std::span<const uint8_t> bytes) {
    const ByteReader file(bytes);
    const size_t headerSize = file.dword(14);
    const bool core = headerSize == CoreHeaderSize;
    if (!core && (headerSize < 16 || headerSize > LargestHeaderSize))
        throw pictureError("The BMP picture has an unknown header of " + std::to_string(headerSize) +
                           " bytes.");
    if (bytes.size() < FileHeaderSize + headerSize)
        throw pictureError("The BMP picture is cut short inside its header.");

    BmpHeader header;
    if (core)
        readCoreHeader(file, header);
    else
        readInfoHeader(file, header);
    requireKnownDepth(header.bits);

    const bool full = headerSize >= InfoHeaderSize;
    const uint32_t compression = full ? file.dword(30) : Rgb;
    readCoding(compression, headerSize, header);
    readMasks(file, compression, header);
    if (full) {
        header.xDotsPerMetre = file.signedDword(38);
        header.yDotsPerMetre = file.signedDword(42);
    }

    size_t coloursAt = FileHeaderSize + headerSize;
    if (headerSize == InfoHeaderSize && compression >= BitFields)
        coloursAt += compression == AlphaBitFields ? 16 : 12;
    const size_t given = file.dword(10);
    header.pixelOffset = std::min(std::max(given, FileHeaderSize + headerSize), bytes.size());
    if (header.bits <= 8) {
        const size_t used = full ? file.dword(46) : 0;
        readColours(file, coloursAt, header.pixelOffset, core ? 3 : 4, used, header);
    }
    return header;
}

} // namespace pixmo
