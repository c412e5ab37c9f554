#include "tests/codecs/sampletiff.h"

#include "tests/codecs/pattern.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <memory>

namespace pixmo {

namespace {

struct MemoryFile {
    std::vector<uint8_t> bytes;
    size_t position = 0;
};

MemoryFile& of(thandle_t handle) {
    return *static_cast<MemoryFile*>(handle);
}

tmsize_t readMemory(thandle_t handle, void* to, tmsize_t count) {
    MemoryFile& file = of(handle);
    const size_t length = std::min(static_cast<size_t>(count), file.bytes.size() - file.position);
    std::memcpy(to, file.bytes.data() + file.position, length);
    file.position += length;
    return static_cast<tmsize_t>(length);
}

tmsize_t writeMemory(thandle_t handle, void* from, tmsize_t count) {
    MemoryFile& file = of(handle);
    const auto length = static_cast<size_t>(count);
    file.bytes.resize(std::max(file.bytes.size(), file.position + length));
    std::memcpy(file.bytes.data() + file.position, from, length);
    file.position += length;
    return count;
}

toff_t seekMemory(thandle_t handle, toff_t offset, int origin) {
    MemoryFile& file = of(handle);
    const auto distance = static_cast<size_t>(offset);
    file.position = origin == SEEK_CUR   ? file.position + distance
                    : origin == SEEK_END ? file.bytes.size() + distance
                                         : distance;
    return file.position;
}

int closeMemory(thandle_t) {
    return 0;
}

toff_t memorySize(thandle_t handle) {
    return of(handle).bytes.size();
}

/// The samples of `count` pixels from (x, y) on, packed; `only` names a single channel, or all with -1.
std::vector<uint8_t> packRow(const TiffSpec& spec, uint32_t x, uint32_t y, uint32_t count, int only) {
    std::vector<uint8_t> packed;
    uint64_t held = 0;
    uint32_t heldBits = 0;
    for (uint32_t i = 0; i < count; ++i)
        for (uint32_t channel = 0; channel < spec.samples; ++channel) {
            if (only >= 0 && channel != static_cast<uint32_t>(only))
                continue;
            const uint32_t sample = patternSample(x + i, y, channel, spec.bits);
            if (spec.bits == 16) {
                packed.push_back(static_cast<uint8_t>(sample));
                packed.push_back(static_cast<uint8_t>(sample >> 8));
                continue;
            }
            held = held << spec.bits | sample;
            for (heldBits += spec.bits; heldBits >= 8; heldBits -= 8)
                packed.push_back(static_cast<uint8_t>(held >> (heldBits - 8)));
        }
    if (heldBits > 0)
        packed.push_back(static_cast<uint8_t>(held << (8 - heldBits)));
    return packed;
}

void setTags(TIFF* tiff, const TiffSpec& spec) {
    TIFFSetField(tiff, TIFFTAG_IMAGEWIDTH, spec.width);
    TIFFSetField(tiff, TIFFTAG_IMAGELENGTH, spec.height);
    TIFFSetField(tiff, TIFFTAG_BITSPERSAMPLE, spec.bits);
    TIFFSetField(tiff, TIFFTAG_SAMPLESPERPIXEL, spec.samples);
    TIFFSetField(tiff, TIFFTAG_COMPRESSION, spec.compression);
    TIFFSetField(tiff, TIFFTAG_PHOTOMETRIC, spec.photometric);
    TIFFSetField(tiff, TIFFTAG_FILLORDER, spec.fillOrder);
    TIFFSetField(tiff, TIFFTAG_PLANARCONFIG, spec.separate ? PLANARCONFIG_SEPARATE : PLANARCONFIG_CONTIG);
    if (spec.compression == COMPRESSION_CCITTFAX3)
        TIFFSetField(tiff, TIFFTAG_GROUP3OPTIONS, spec.faxOptions);
    if (spec.orientation != 0)
        TIFFSetField(tiff, TIFFTAG_ORIENTATION, spec.orientation);
    const bool ink = spec.photometric == PHOTOMETRIC_SEPARATED;
    const uint16_t colours = spec.photometric == PHOTOMETRIC_RGB ? 3 : ink ? 4 : 1;
    if (spec.samples > colours && spec.photometric != PHOTOMETRIC_YCBCR)
        TIFFSetField(tiff, TIFFTAG_EXTRASAMPLES, 1, &spec.extraKind);
    if (spec.resolutionUnit != 0) {
        TIFFSetField(tiff, TIFFTAG_RESOLUTIONUNIT, spec.resolutionUnit);
        TIFFSetField(tiff, TIFFTAG_XRESOLUTION, static_cast<double>(spec.xResolution));
        TIFFSetField(tiff, TIFFTAG_YRESOLUTION, static_cast<double>(spec.yResolution));
    }
    if (spec.photometric == PHOTOMETRIC_PALETTE) {
        std::array<std::vector<uint16_t>, 3> map;
        for (uint32_t index = 0; index < 1U << spec.bits; ++index)
            for (uint32_t channel = 0; channel < 3; ++channel)
                map[channel].push_back(
                    static_cast<uint16_t>((tiffMapColour(index) >> (16 - 8 * channel) & 255) * 257));
        TIFFSetField(tiff, TIFFTAG_COLORMAP, map[0].data(), map[1].data(), map[2].data());
    }
    if (spec.photometric == PHOTOMETRIC_YCBCR)
        TIFFSetField(tiff, TIFFTAG_JPEGCOLORMODE, JPEGCOLORMODE_RGB);
    if (spec.compression == COMPRESSION_JPEG)
        TIFFSetField(tiff, TIFFTAG_JPEGQUALITY, 100);
    if (spec.tile != 0) {
        TIFFSetField(tiff, TIFFTAG_TILEWIDTH, spec.tile);
        TIFFSetField(tiff, TIFFTAG_TILELENGTH, spec.tile);
    } else {
        TIFFSetField(tiff, TIFFTAG_ROWSPERSTRIP, spec.rowsPerStrip == 0 ? spec.height : spec.rowsPerStrip);
    }
}

bool writeBlock(TIFF* tiff, const TiffSpec& spec, uint32_t x, uint32_t y, int plane) {
    const uint32_t rows =
        spec.tile != 0 ? spec.tile
                       : std::min(spec.rowsPerStrip == 0 ? spec.height : spec.rowsPerStrip, spec.height - y);
    std::vector<uint8_t> block;
    for (uint32_t row = 0; row < rows; ++row) {
        const auto packed = packRow(spec, x, y + row, spec.tile != 0 ? spec.tile : spec.width, plane);
        block.insert(block.end(), packed.begin(), packed.end());
    }
    const auto size = static_cast<tmsize_t>(block.size());
    const auto sample = static_cast<uint16_t>(std::max(plane, 0));
    if (spec.tile != 0)
        return TIFFWriteEncodedTile(tiff, TIFFComputeTile(tiff, x, y, 0, sample), block.data(), size) == size;
    return TIFFWriteEncodedStrip(tiff, TIFFComputeStrip(tiff, y, sample), block.data(), size) == size;
}

bool writePage(TIFF* tiff, const TiffSpec& spec) {
    const uint32_t down = spec.tile != 0           ? spec.tile
                          : spec.rowsPerStrip != 0 ? spec.rowsPerStrip
                                                   : spec.height;
    const uint32_t across = spec.tile != 0 ? spec.tile : spec.width;
    for (int plane = spec.separate ? 0 : -1; plane < (spec.separate ? spec.samples : 0); ++plane)
        for (uint32_t y = 0; y < spec.height; y += down)
            for (uint32_t x = 0; x < spec.width; x += across)
                if (!writeBlock(tiff, spec, x, y, plane))
                    return false;
    return TIFFWriteDirectory(tiff) == 1;
}

void writeBlankPage(TIFF* tiff) {
    TiffSpec blank;
    blank.width = 1;
    blank.height = 1;
    setTags(tiff, blank);
    uint8_t white = 0;
    TIFFWriteEncodedStrip(tiff, 0, &white, 1);
    TIFFWriteDirectory(tiff);
}

} // namespace

uint32_t tiffMapColour(uint32_t index) {
    return (index * 0x3B1D05U + 0x102030U) & 0xFFFFFFU;
}

std::vector<uint8_t> makeTiff(const TiffSpec& spec) {
    TIFFSetErrorHandler(nullptr);
    TIFFSetWarningHandler(nullptr);
    MemoryFile file;
    const std::unique_ptr<TIFF, void (*)(TIFF*)> tiff(TIFFClientOpen("sample", spec.mode, &file, readMemory,
                                                                     writeMemory, seekMemory, closeMemory,
                                                                     memorySize, nullptr, nullptr),
                                                      TIFFClose);
    setTags(tiff.get(), spec);
    if (!writePage(tiff.get(), spec))
        return {};
    for (int page = 1; page < spec.pages; ++page)
        writeBlankPage(tiff.get());
    return file.bytes;
}

uint32_t tiffDataOffset(size_t entries) {
    return static_cast<uint32_t>(8 + 2 + entries * 12 + 4);
}

std::vector<uint8_t> buildTiff(const std::vector<TiffEntry>& entries, const std::vector<uint8_t>& data,
                               uint32_t nextDirectory) {
    std::vector<uint8_t> bytes = {'I', 'I', 42, 0, 8, 0, 0, 0};
    const auto append = [&bytes](uint32_t value, int length) {
        for (int i = 0; i < length; ++i)
            bytes.push_back(static_cast<uint8_t>(value >> (8 * i)));
    };
    append(static_cast<uint32_t>(entries.size()), 2);
    for (const TiffEntry& entry : entries) {
        append(entry.tag, 2);
        append(entry.type, 2);
        append(entry.count, 4);
        append(entry.value, 4);
    }
    append(nextDirectory, 4);
    bytes.insert(bytes.end(), data.begin(), data.end());
    return bytes;
}

std::vector<uint8_t> storedStrip(const std::vector<uint8_t>& tiff) {
    const auto number = [&tiff](size_t at, int length) {
        size_t value = 0;
        for (int i = 0; i < length; ++i)
            value |= size_t{tiff[at + static_cast<size_t>(i)]} << (8 * i);
        return value;
    };
    const size_t directory = number(4, 4);
    size_t offset = 0;
    size_t count = 0;
    for (size_t i = 0; i < number(directory, 2); ++i) {
        const size_t entry = directory + 2 + i * 12;
        const int length = number(entry + 2, 2) == TIFF_SHORT ? 2 : 4;
        if (number(entry, 2) == TIFFTAG_STRIPOFFSETS)
            offset = number(entry + 8, length);
        else if (number(entry, 2) == TIFFTAG_STRIPBYTECOUNTS)
            count = number(entry + 8, length);
    }
    const auto first = tiff.begin() + static_cast<std::ptrdiff_t>(offset);
    return {first, first + static_cast<std::ptrdiff_t>(count)};
}

std::vector<uint8_t> wrapStrip(const TiffSpec& spec, const std::vector<uint8_t>& strip) {
    constexpr size_t Entries = 10;
    return buildTiff({{TIFFTAG_IMAGEWIDTH, TIFF_LONG, 1, spec.width},
                      {TIFFTAG_IMAGELENGTH, TIFF_LONG, 1, spec.height},
                      {TIFFTAG_BITSPERSAMPLE, TIFF_SHORT, 1, spec.bits},
                      {TIFFTAG_COMPRESSION, TIFF_SHORT, 1, spec.compression},
                      {TIFFTAG_PHOTOMETRIC, TIFF_SHORT, 1, spec.photometric},
                      {TIFFTAG_STRIPOFFSETS, TIFF_LONG, 1, tiffDataOffset(Entries)},
                      {TIFFTAG_SAMPLESPERPIXEL, TIFF_SHORT, 1, spec.samples},
                      {TIFFTAG_ROWSPERSTRIP, TIFF_LONG, 1, spec.height},
                      {TIFFTAG_STRIPBYTECOUNTS, TIFF_LONG, 1, static_cast<uint32_t>(strip.size())},
                      {TIFFTAG_GROUP3OPTIONS, TIFF_LONG, 1, spec.faxOptions}},
                     strip);
}

} // namespace pixmo
