#include "codecs/tiffwriter.h"

#include "codecs/codecerror.h"
#include "codecs/tiffmessages.h"

#include <tiffio.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstring>
#include <limits>
#include <memory>
#include <new>

namespace pixmo {

namespace {

/// The system calls of libtiff, answered by a growing block of memory.
class MemoryFile {
public:
    static tmsize_t read(thandle_t handle, void* to, tmsize_t count) {
        MemoryFile& file = of(handle);
        if (count <= 0 || file.position_ >= file.bytes.size())
            return 0;
        const size_t length = std::min(file.bytes.size() - file.position_, static_cast<size_t>(count));
        std::memcpy(to, file.bytes.data() + file.position_, length);
        file.position_ += length;
        return static_cast<tmsize_t>(length);
    }

    // No exception passes through libtiff, which is C.
    static tmsize_t write(thandle_t handle, void* from, tmsize_t count) {
        MemoryFile& file = of(handle);
        const size_t end = file.position_ + static_cast<size_t>(std::max<tmsize_t>(count, 0));
        try {
            if (end > file.bytes.size())
                file.bytes.resize(end);
        } catch (const std::bad_alloc&) {
            file.outOfMemory = true;
            return -1;
        }
        std::memcpy(file.bytes.data() + file.position_, from, end - file.position_);
        file.position_ = end;
        return count;
    }

    static toff_t seek(thandle_t handle, toff_t offset, int origin) {
        MemoryFile& file = of(handle);
        const size_t from = origin == SEEK_CUR ? file.position_ : origin == SEEK_END ? file.bytes.size() : 0;
        file.position_ = from + static_cast<size_t>(offset);
        return file.position_;
    }

    static int close(thandle_t) { return 0; }
    static toff_t size(thandle_t handle) { return of(handle).bytes.size(); }

    std::vector<uint8_t> bytes;
    bool outOfMemory = false;

private:
    static MemoryFile& of(thandle_t handle) { return *static_cast<MemoryFile*>(handle); }

    size_t position_ = 0;
};

struct FreeOptions {
    void operator()(TIFFOpenOptions* options) const { TIFFOpenOptionsFree(options); }
};

struct CloseTiff {
    void operator()(TIFF* tiff) const { TIFFClose(tiff); }
};

using Tiff = std::unique_ptr<TIFF, CloseTiff>;

constexpr uint32_t BytesPerStrip = 64 * 1024;

Tiff openForWriting(MemoryFile& file, TiffMessages& messages) {
    const std::unique_ptr<TIFFOpenOptions, FreeOptions> options(TIFFOpenOptionsAlloc());
    if (!options)
        throw std::bad_alloc();
    TIFFOpenOptionsSetErrorHandlerExtR(options.get(), TiffMessages::onError, &messages);
    TIFFOpenOptionsSetWarningHandlerExtR(options.get(), TiffMessages::onWarning, &messages);
    Tiff tiff(TIFFClientOpenExt("page", "w", &file, MemoryFile::read, MemoryFile::write, MemoryFile::seek,
                                MemoryFile::close, MemoryFile::size, nullptr, nullptr, options.get()));
    if (!tiff)
        throw pictureError("The page cannot be written as TIFF.");
    return tiff;
}

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
    MemoryFile file;
    TiffMessages messages;
    bool done = false;
    {
        const Tiff tiff = openForWriting(file, messages);
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
