#include "tests/engine/sampletiff.h"

#include <algorithm>
#include <array>
#include <memory>
#include <sstream>
#include <stdexcept>
#include <tiffio.h>

namespace pixmo {

namespace {

constexpr std::array<uint32_t, 7> DescribedTags = {
    TIFFTAG_BITSPERSAMPLE, TIFFTAG_SAMPLESPERPIXEL, TIFFTAG_COMPRESSION, TIFFTAG_PHOTOMETRIC,
    TIFFTAG_FILLORDER,     TIFFTAG_ORIENTATION,     TIFFTAG_PREDICTOR};

using TiffHandle = std::unique_ptr<TIFF, void (*)(TIFF*)>;

TiffHandle open(const std::filesystem::path& file, const std::string& mode) {
    TiffHandle tiff(TIFFOpen(file.c_str(), mode.c_str()), TIFFClose);
    if (!tiff)
        throw std::runtime_error("no TIFF: " + file.string());
    return tiff;
}

std::vector<uint8_t> pattern(tmsize_t size, unsigned seed) {
    std::vector<uint8_t> bytes(static_cast<size_t>(size));
    for (size_t i = 0; i < bytes.size(); ++i)
        bytes[i] = static_cast<uint8_t>((i / 7) * (seed + 3) + i % 5);
    return bytes;
}

void writePalette(TIFF* tiff) {
    std::array<uint16_t, 256> ramp{};
    for (size_t i = 0; i < ramp.size(); ++i)
        ramp[i] = static_cast<uint16_t>(i * 257);
    TIFFSetField(tiff, TIFFTAG_COLORMAP, ramp.data(), ramp.data(), ramp.data());
}

void writeTags(TIFF* tiff, const SampleFrame& frame) {
    TIFFSetField(tiff, TIFFTAG_IMAGEWIDTH, frame.width);
    TIFFSetField(tiff, TIFFTAG_IMAGELENGTH, frame.height);
    TIFFSetField(tiff, TIFFTAG_BITSPERSAMPLE, frame.bitsPerSample);
    TIFFSetField(tiff, TIFFTAG_SAMPLESPERPIXEL, frame.samplesPerPixel);
    TIFFSetField(tiff, TIFFTAG_COMPRESSION, frame.compression);
    TIFFSetField(tiff, TIFFTAG_PHOTOMETRIC, frame.photometric);
    TIFFSetField(tiff, TIFFTAG_PLANARCONFIG, PLANARCONFIG_CONTIG);
    TIFFSetField(tiff, TIFFTAG_FILLORDER, frame.fillOrder);
    TIFFSetField(tiff, TIFFTAG_XRESOLUTION, 200.0);
    TIFFSetField(tiff, TIFFTAG_YRESOLUTION, 100.0);
    TIFFSetField(tiff, TIFFTAG_ORIENTATION, ORIENTATION_TOPLEFT);
    if (frame.predictor != 1)
        TIFFSetField(tiff, TIFFTAG_PREDICTOR, frame.predictor);
    if (frame.compression == COMPRESSION_JPEG && frame.photometric == PHOTOMETRIC_YCBCR)
        TIFFSetField(tiff, TIFFTAG_JPEGCOLORMODE, JPEGCOLORMODE_RGB);
    if (frame.photometric == PHOTOMETRIC_PALETTE)
        writePalette(tiff);
    if (frame.tiled) {
        TIFFSetField(tiff, TIFFTAG_TILEWIDTH, 32);
        TIFFSetField(tiff, TIFFTAG_TILELENGTH, 16);
    } else {
        TIFFSetField(tiff, TIFFTAG_ROWSPERSTRIP, 16);
    }
}

void writeFrame(TIFF* tiff, const SampleFrame& frame, unsigned seed) {
    writeTags(tiff, frame);
    const uint32_t pieces = frame.tiled ? TIFFNumberOfTiles(tiff) : TIFFNumberOfStrips(tiff);
    for (uint32_t index = 0; index < pieces; ++index) {
        const uint32_t rows = std::min(16U, frame.height - index * 16);
        auto data = pattern(frame.tiled ? TIFFTileSize(tiff) : TIFFVStripSize(tiff, rows), seed + index);
        const auto size = static_cast<tmsize_t>(data.size());
        const auto write = frame.tiled ? TIFFWriteEncodedTile : TIFFWriteEncodedStrip;
        if (write(tiff, index, data.data(), size) < 0)
            throw std::runtime_error("cannot write a piece");
    }
    TIFFWriteDirectory(tiff);
}

std::string describe(TIFF* tiff) {
    std::ostringstream text;
    uint16_t number = 0;
    for (const uint32_t tag : DescribedTags)
        text << (TIFFGetField(tiff, tag, &number) == 1 ? number : 0) << ' ';
    float across = 0;
    float down = 0;
    TIFFGetField(tiff, TIFFTAG_XRESOLUTION, &across);
    TIFFGetField(tiff, TIFFTAG_YRESOLUTION, &down);
    text << across << 'x' << down << (TIFFIsTiled(tiff) != 0 ? " tiled" : "")
         << (TIFFIsBigEndian(tiff) != 0 ? " MM" : " II");
    return text.str();
}

} // namespace

void writeTiff(const std::filesystem::path& file, const std::vector<SampleFrame>& frames,
               const std::string& mode) {
    const TiffHandle tiff = open(file, mode);
    unsigned seed = 1;
    for (const SampleFrame& frame : frames)
        writeFrame(tiff.get(), frame, seed++);
}

StoredFrame readFrame(const std::filesystem::path& file, unsigned index) {
    const TiffHandle tiff = open(file, "r");
    if (TIFFSetDirectory(tiff.get(), index) == 0)
        throw std::runtime_error("no such frame");
    StoredFrame frame;
    frame.description = describe(tiff.get());
    const bool tiled = TIFFIsTiled(tiff.get()) != 0;
    const uint32_t pieces = tiled ? TIFFNumberOfTiles(tiff.get()) : TIFFNumberOfStrips(tiff.get());
    for (uint32_t piece = 0; piece < pieces; ++piece) {
        std::vector<uint8_t> bytes(TIFFGetStrileByteCount(tiff.get(), piece));
        const auto size = static_cast<tmsize_t>(bytes.size());
        if ((tiled ? TIFFReadRawTile : TIFFReadRawStrip)(tiff.get(), piece, bytes.data(), size) != size)
            throw std::runtime_error("cannot read a piece");
        frame.pieces.push_back(std::move(bytes));
    }
    uint32_t width = 0;
    uint32_t height = 0;
    TIFFGetField(tiff.get(), TIFFTAG_IMAGEWIDTH, &width);
    TIFFGetField(tiff.get(), TIFFTAG_IMAGELENGTH, &height);
    frame.pixels.resize(size_t{width} * height);
    if (TIFFReadRGBAImage(tiff.get(), width, height, frame.pixels.data(), 1) == 0)
        throw std::runtime_error("cannot decode the frame");
    return frame;
}

} // namespace pixmo
