#include "tests/engine/storedframe.h"

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

TiffHandle open(const std::filesystem::path& file) {
    TiffHandle tiff(TIFFOpen(file.c_str(), "r"), TIFFClose);
    if (!tiff)
        throw std::runtime_error("no TIFF: " + file.string());
    return tiff;
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

std::filesystem::path storedPicture(const std::string& name) {
    return std::filesystem::path(PIXMO_PICTURES) / name;
}

StoredFrame readFrame(const std::filesystem::path& file, unsigned index) {
    const TiffHandle tiff = open(file);
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
