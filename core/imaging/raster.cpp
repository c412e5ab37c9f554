#include "core/imaging/raster.h"

namespace pixmo {

Raster makeRaster(PixelFormat format, int32_t width, int32_t height) {
    Raster raster;
    raster.format = format;
    raster.width = width;
    raster.height = height;
    raster.stride = packedRowSize(format, width);
    if (format == PixelFormat::Bilevel)
        raster.stride = (raster.stride + 7) / 8 * 8;
    raster.bitsPerPixel = format == PixelFormat::Bilevel ? 1 : format == PixelFormat::Gray ? 8 : 24;
    raster.pixels.resize(raster.stride * static_cast<size_t>(height));
    return raster;
}

} // namespace pixmo
