#include "core/raster/raster.h"

#include "tests/imaging/pictures.h"

#include <gtest/gtest.h>

namespace pixmo {
namespace {

TEST(PartOfARaster, HasItsPixelsAndNothingBehindTheEdge) {
    const Rectangle picture = {0, 0, 67, 5};
    for (const PixelFormat format : {PixelFormat::Bilevel, PixelFormat::Gray, PixelFormat::Rgb})
        for (const Rectangle asked :
             {picture, Rectangle{8, 1, 16, 2}, Rectangle{3, 0, 61, 5}, Rectangle{13, 2, 9, 1},
              Rectangle{66, 4, 1, 1}, Rectangle{-5, -5, 20, 20}, Rectangle{60, 3, 100, 100}}) {
            Raster whole = test::noise(format, picture.width, picture.height);
            whole.xResolution = 204;
            const Raster part = partOf(whole, asked);
            const Rectangle expected = intersection(asked, picture);
            ASSERT_EQ(part.width, expected.width);
            ASSERT_EQ(part.height, expected.height);
            EXPECT_EQ(part.xResolution, 204);
            for (int32_t y = 0; y < part.height; ++y) {
                for (int32_t x = 0; x < part.width; ++x)
                    ASSERT_EQ(test::colourAt(part, x, y),
                              test::colourAt(whole, expected.left + x, expected.top + y))
                        << x << "," << y;
                const int behind = format == PixelFormat::Bilevel ? (8 - part.width % 8) % 8 : 0;
                const int last = part.row(y)[packedRowSize(format, part.width) - 1];
                EXPECT_EQ(last & ((1 << behind) - 1), 0);
            }
        }
    EXPECT_TRUE(partOf(test::noise(PixelFormat::Gray, 5, 5), {5, 0, 3, 3}).empty());
}

} // namespace
} // namespace pixmo
