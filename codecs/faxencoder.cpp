#include "codecs/faxencoder.h"

#include <algorithm>
#include <cstring>
#include <memory>
#include <tiffio.h>

namespace pixmo {

namespace {

/// A file in memory; nothing but the block that it holds is wanted.
struct MemoryFile {
    std::vector<uint8_t> bytes;
    size_t at = 0;
};

MemoryFile& memory(thandle_t handle) {
    return *static_cast<MemoryFile*>(handle);
}

tmsize_t readBytes(thandle_t handle, void* target, tmsize_t size) {
    MemoryFile& file = memory(handle);
    const size_t rest = file.at < file.bytes.size() ? file.bytes.size() - file.at : 0;
    const size_t count = std::min(static_cast<size_t>(size), rest);
    if (count > 0)
        std::memcpy(target, file.bytes.data() + file.at, count);
    file.at += count;
    return static_cast<tmsize_t>(count);
}

tmsize_t writeBytes(thandle_t handle, void* source, tmsize_t size) {
    MemoryFile& file = memory(handle);
    const auto count = static_cast<size_t>(size);
    if (file.bytes.size() < file.at + count)
        file.bytes.resize(file.at + count);
    std::memcpy(file.bytes.data() + file.at, source, count);
    file.at += count;
    return size;
}

toff_t seek(thandle_t handle, toff_t offset, int whence) {
    MemoryFile& file = memory(handle);
    const size_t base = whence == SEEK_SET ? 0 : whence == SEEK_CUR ? file.at : file.bytes.size();
    file.at = base + static_cast<size_t>(offset);
    return file.at;
}

int closeFile(thandle_t) {
    return 0;
}

toff_t sizeOf(thandle_t handle) {
    return memory(handle).bytes.size();
}

struct Closer {
    void operator()(TIFF* tiff) const { TIFFClose(tiff); }
};

bool describe(TIFF* tiff, int32_t width, int32_t height) {
    return TIFFSetField(tiff, TIFFTAG_IMAGEWIDTH, width) != 0 &&
           TIFFSetField(tiff, TIFFTAG_IMAGELENGTH, height) != 0 &&
           TIFFSetField(tiff, TIFFTAG_BITSPERSAMPLE, 1) != 0 &&
           TIFFSetField(tiff, TIFFTAG_SAMPLESPERPIXEL, 1) != 0 &&
           TIFFSetField(tiff, TIFFTAG_ROWSPERSTRIP, height) != 0 &&
           TIFFSetField(tiff, TIFFTAG_PHOTOMETRIC, PHOTOMETRIC_MINISWHITE) != 0 &&
           TIFFSetField(tiff, TIFFTAG_COMPRESSION, COMPRESSION_CCITTFAX4) != 0;
}

} // namespace

std::vector<uint8_t> encodeFax4(const Raster& picture) {
    if (picture.empty() || picture.format != PixelFormat::Bilevel)
        return {};
    MemoryFile file;
    const std::unique_ptr<TIFF, Closer> tiff(
        TIFFClientOpen("fax", "wm", &file, readBytes, writeBytes, seek, closeFile, sizeOf, nullptr, nullptr));
    if (!tiff || !describe(tiff.get(), picture.width, picture.height))
        return {};
    for (int32_t y = 0; y < picture.height; ++y) {
        // The library does not change what it encodes, but does not say so.
        auto* const row = const_cast<uint8_t*>(picture.row(y).data());
        if (TIFFWriteScanline(tiff.get(), row, static_cast<uint32_t>(y), 0) != 1)
            return {};
    }
    if (TIFFFlushData(tiff.get()) == 0)
        return {};
    const uint64_t offset = TIFFGetStrileOffset(tiff.get(), 0);
    const uint64_t count = TIFFGetStrileByteCount(tiff.get(), 0);
    if (count == 0 || offset + count > file.bytes.size())
        return {};
    const auto begin = file.bytes.begin() + static_cast<std::ptrdiff_t>(offset);
    return {begin, begin + static_cast<std::ptrdiff_t>(count)};
}

} // namespace pixmo
