#include "codecs/tiffwriter.h"

#include "codecs/codecerror.h"
#include "codecs/tiffmemory.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <new>

namespace pixmo {

namespace {

constexpr uint32_t BytesPerStrip = 64 * 1024;

uint16_t photometricOf(const Raster& page) {
    if (page.format == PixelFormat::Rgb)
        return PHOTOMETRIC_RGB;
    if (page.format == PixelFormat::Gray)
        return PHOTOMETRIC_MINISBLACK;
    const auto& [paper, ink] = page.bilevelColours;
    if (paper == 0xFFFFFF && ink == 0)
        return PHOTOMETRIC_MINISWHITE;
    return paper == 0 && ink == 0xFFFFFF ? PHOTOMETRIC_MINISBLACK : PHOTOMETRIC_PALETTE;
}

void setPalette(TIFF* tiff, const Raster& page) {
    std::array<std::array<uint16_t, 2>, 3> channels{};
    for (size_t entry = 0; entry < 2; ++entry)
        for (size_t channel = 0; channel < 3; ++channel)
            channels.at(channel).at(entry) =
                static_cast<uint16_t>((page.bilevelColours.at(entry) >> (16 - 8 * channel) & 255) * 257);
    TIFFSetField(tiff, TIFFTAG_COLORMAP, channels[0].data(), channels[1].data(), channels[2].data());
}

void setFields(TIFF* tiff, const Raster& page) {
    const bool bilevel = page.format == PixelFormat::Bilevel;
    const uint16_t photometric = photometricOf(page);
    TIFFSetField(tiff, TIFFTAG_IMAGEWIDTH, static_cast<uint32_t>(page.width));
    TIFFSetField(tiff, TIFFTAG_IMAGELENGTH, static_cast<uint32_t>(page.height));
    TIFFSetField(tiff, TIFFTAG_BITSPERSAMPLE, bilevel ? 1 : 8);
    TIFFSetField(tiff, TIFFTAG_SAMPLESPERPIXEL, page.format == PixelFormat::Rgb ? 3 : 1);
    TIFFSetField(tiff, TIFFTAG_PHOTOMETRIC, photometric);
    TIFFSetField(tiff, TIFFTAG_PLANARCONFIG, PLANARCONFIG_CONTIG);
    TIFFSetField(tiff, TIFFTAG_ORIENTATION, ORIENTATION_TOPLEFT);
    TIFFSetField(tiff, TIFFTAG_RESOLUTIONUNIT, RESUNIT_INCH);
    TIFFSetField(tiff, TIFFTAG_XRESOLUTION, page.xResolution);
    TIFFSetField(tiff, TIFFTAG_YRESOLUTION, page.yResolution);
    if (photometric == PHOTOMETRIC_PALETTE)
        setPalette(tiff, page);
    if (bilevel && photometric != PHOTOMETRIC_PALETTE) {
        TIFFSetField(tiff, TIFFTAG_COMPRESSION, COMPRESSION_CCITTFAX4);
        TIFFSetField(tiff, TIFFTAG_ROWSPERSTRIP, static_cast<uint32_t>(page.height));
        return;
    }
    TIFFSetField(tiff, TIFFTAG_COMPRESSION, COMPRESSION_LZW);
    if (!bilevel)
        TIFFSetField(tiff, TIFFTAG_PREDICTOR, PREDICTOR_HORIZONTAL);
    const auto rowBytes = static_cast<uint32_t>(packedRowSize(page.format, page.width));
    TIFFSetField(tiff, TIFFTAG_ROWSPERSTRIP, std::max(1U, BytesPerStrip / rowBytes));
}

/// The library takes rows that it may change.
bool writeRows(TIFF* tiff, const Raster& page) {
    std::vector<uint8_t> row(packedRowSize(page.format, page.width));
    for (int32_t y = 0; y < page.height; ++y) {
        std::memcpy(row.data(), page.row(y).data(), row.size());
        if (TIFFWriteScanline(tiff, row.data(), static_cast<uint32_t>(y), 0) < 0)
            return false;
    }
    return TIFFFlush(tiff) != 0;
}

} // namespace

std::vector<uint8_t> encodeTiff(const Raster& page) {
    if (page.empty())
        throw pictureError("There is no page to write.");
    TiffMemory file;
    TiffMessages messages;
    bool done = false;
    {
        const TiffHandle tiff = file.open("w", messages);
        if (!tiff)
            throw pictureError("The page cannot be written as TIFF.");
        setFields(tiff.get(), page);
        done = writeRows(tiff.get(), page);
    }
    if (file.outOfMemory)
        throw std::bad_alloc();
    if (!done)
        throw pictureError(std::string("The page cannot be written as TIFF: ") + messages.text() + ".");
    return std::move(file.bytes);
}

} // namespace pixmo
