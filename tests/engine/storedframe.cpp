#include "tests/engine/storedframe.h"

#include <memory>
#include <stdexcept>
#include <tiffio.h>

namespace pixmo {

std::filesystem::path storedPicture(const std::string& name) {
    return std::filesystem::path(PIXMO_PICTURES) / name;
}

StoredFrame readFrame(const std::filesystem::path& file, unsigned index) {
    const std::unique_ptr<TIFF, void (*)(TIFF*)> tiff(TIFFOpen(file.c_str(), "r"), TIFFClose);
    if (!tiff || TIFFSetDirectory(tiff.get(), index) == 0)
        throw std::runtime_error("no such frame");
    StoredFrame frame;
    TIFFGetField(tiff.get(), TIFFTAG_IMAGEWIDTH, &frame.width);
    TIFFGetField(tiff.get(), TIFFTAG_IMAGELENGTH, &frame.height);
    TIFFGetField(tiff.get(), TIFFTAG_XRESOLUTION, &frame.xResolution);
    TIFFGetField(tiff.get(), TIFFTAG_YRESOLUTION, &frame.yResolution);
    TIFFGetField(tiff.get(), TIFFTAG_COMPRESSION, &frame.compression);
    TIFFGetField(tiff.get(), TIFFTAG_BITSPERSAMPLE, &frame.bitsPerSample);
    frame.pixels.resize(size_t{frame.width} * frame.height);
    if (TIFFReadRGBAImage(tiff.get(), frame.width, frame.height, frame.pixels.data(), 1) == 0)
        throw std::runtime_error("cannot decode the frame");
    return frame;
}

} // namespace pixmo
