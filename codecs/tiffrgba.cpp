#include "codecs/tiffrgba.h"

#include "codecs/newraster.h"
#include "codecs/pixelmath.h"
#include "codecs/tifffile.h"

#include <array>
#include <string>
#include <vector>

namespace pixmo {

namespace {

/// TIFFRGBAImage with an end.
class RgbaImage {
public:
    explicit RgbaImage(const TiffFile& file) {
        constexpr int StopOnError = 1;
        std::array<char, 1024> problem{};
        if (TIFFRGBAImageOK(file.tiff(), problem.data()) == 0 ||
            TIFFRGBAImageBegin(&image_, file.tiff(), StopOnError, problem.data()) == 0)
            file.fail(std::string("The TIFF page is not supported (") + problem.data() + ")");
        image_.orientation = ORIENTATION_TOPLEFT;
        image_.req_orientation = ORIENTATION_TOPLEFT;
    }
    ~RgbaImage() { TIFFRGBAImageEnd(&image_); }
    RgbaImage(const RgbaImage&) = delete;
    RgbaImage& operator=(const RgbaImage&) = delete;

    bool get(std::span<uint32_t> pixels, const TiffLayout& layout) {
        return TIFFRGBAImageGet(&image_, pixels.data(), layout.width, layout.height) != 0;
    }

private:
    TIFFRGBAImage image_{};
};

} // namespace

Raster decodeTiffRgba(TiffFile& file, const TiffLayout& layout, const DecodeLimits& limits) {
    const size_t pixels = size_t{layout.width} * layout.height;
    checkSize(layout.width, layout.height, PixelFormat::Rgb, limits);
    checkWorkingMemory(uint64_t{pixels} * sizeof(uint32_t), "its colours", limits);
    RgbaImage image(file);
    std::vector<uint32_t> colours(pixels);
    file.messages().clear();
    if (!image.get(colours, layout) || !file.messages().areRowsWhole(layout.height))
        file.fail("The TIFF page is damaged or cut short");
    Raster raster = newRaster(PixelFormat::Rgb, layout.width, layout.height, limits);
    uint8_t* to = raster.pixels.data();
    for (const uint32_t colour : colours) {
        const uint32_t alpha = TIFFGetA(colour);
        *to++ = premultipliedOnWhite(TIFFGetR(colour), alpha);
        *to++ = premultipliedOnWhite(TIFFGetG(colour), alpha);
        *to++ = premultipliedOnWhite(TIFFGetB(colour), alpha);
    }
    return raster;
}

} // namespace pixmo
