#include "codecs/faxencoder.h"

#include "codecs/tiffmemory.h"

namespace pixmo {

namespace {

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
    TiffMemory file;
    TiffMessages messages;
    const TiffHandle tiff = file.open("wm", messages);
    if (!tiff || !describe(tiff.get(), picture.width, picture.height))
        return {};
    for (int32_t y = 0; y < picture.height; ++y) {
        // The library does not change what it encodes, but does not say so.
        auto* const row = const_cast<uint8_t*>(picture.row(y).data());
        if (TIFFWriteScanline(tiff.get(), row, static_cast<uint32_t>(y), 0) != 1)
            return {};
    }
    if (TIFFFlushData(tiff.get()) == 0 || file.outOfMemory)
        return {};
    const uint64_t offset = TIFFGetStrileOffset(tiff.get(), 0);
    const uint64_t count = TIFFGetStrileByteCount(tiff.get(), 0);
    if (count == 0 || offset + count > file.bytes.size())
        return {};
    const auto begin = file.bytes.begin() + static_cast<std::ptrdiff_t>(offset);
    return {begin, begin + static_cast<std::ptrdiff_t>(count)};
}

} // namespace pixmo
