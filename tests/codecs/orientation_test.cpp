#include "codecs/orientation.h"
#include "tests/codecs/pattern.h"

#include <gtest/gtest.h>

namespace pixmo {
namespace {

/// Turning a picture back gives the picture: 6 and 8 undo each other, every other orientation itself.
TEST(Orientation, TurnedBackIsThePicture) {
    for (const PixelFormat format : {PixelFormat::Bilevel, PixelFormat::Gray, PixelFormat::Rgb})
        for (const int32_t width : {1, 7, 8, 9, 64, 65, 130})
            for (const int32_t height : {1, 8, 33, 70}) {
                Raster raster = makeRaster(format, width, height);
                raster.bitsPerPixel = 5;
                for (int32_t y = 0; y < height; ++y)
                    for (size_t i = 0; i < packedRowSize(format, width); ++i)
                        raster.row(y)[i] = static_cast<uint8_t>(
                            patternSample(static_cast<uint32_t>(i), static_cast<uint32_t>(y), 0, 8));
                if (format == PixelFormat::Bilevel && width % 8 != 0)
                    for (int32_t y = 0; y < height; ++y)
                        raster.row(y)[static_cast<size_t>(width) / 8] &=
                            static_cast<uint8_t>(0xFF00 >> width % 8);
                for (int32_t orientation = 1; orientation <= 8; ++orientation) {
                    const Raster turned = upright(raster, orientation);
                    EXPECT_TRUE(hasCleanMargins(turned));
                    EXPECT_EQ(turned.bitsPerPixel, 5);
                    const int32_t back = orientation == 6 ? 8 : orientation == 8 ? 6 : orientation;
                    EXPECT_EQ(upright(turned, back).pixels, raster.pixels)
                        << orientation << ": " << width << " x " << height;
                    if (width > 8 && height > 8) {
                        EXPECT_EQ(turned.pixels == raster.pixels, orientation == 1);
                    }
                }
            }
}

} // namespace
} // namespace pixmo
