#include "bench/pages.h"

#include "core/raster/rectangle.h"

#include <algorithm>
#include <random>

namespace pixmo::bench {

namespace {

constexpr int32_t LineHeight = 50;
constexpr int32_t GlyphWidth = 22;
constexpr int32_t GlyphHeight = 32;
constexpr int32_t Stroke = 4;

void fillInk(Raster& page, const Rectangle& area) {
    const Rectangle inside = intersection(area, {0, 0, page.width, page.height});
    for (int32_t y = inside.top; y < inside.bottom(); ++y)
        for (int32_t x = inside.left; x < inside.right(); ++x)
            page.row(y)[static_cast<size_t>(x / 8)] |= static_cast<uint8_t>(0x80U >> (x % 8));
}

/// Two to four strokes, upright, level or slanting.
void drawGlyph(Raster& page, int32_t left, int32_t top, std::mt19937& random) {
    const auto below = [&](int32_t limit) {
        return static_cast<int32_t>(random() % static_cast<uint32_t>(limit));
    };
    for (int32_t strokes = 2 + below(3); strokes > 0; --strokes) {
        const int32_t x = left + below(GlyphWidth - Stroke - 4);
        const int32_t y = top + below(GlyphHeight - Stroke);
        switch (below(3)) {
        case 0:
            fillInk(page, {x, top, Stroke, GlyphHeight});
            break;
        case 1:
            fillInk(page, {left, y, GlyphWidth - 6, Stroke});
            break;
        default:
            for (int32_t i = 0; i < GlyphHeight; ++i)
                fillInk(page, {left + i / 2, top + i, Stroke + 1, 1});
        }
    }
}

} // namespace

Raster textPage(int32_t width, int32_t height) {
    Raster page = makeRaster(PixelFormat::Bilevel, width, height);
    page.xResolution = page.yResolution = 300;
    std::mt19937 random(20);
    const int32_t margin = width / 10;
    for (int32_t line = 0; margin + (line + 1) * LineHeight < height - margin; ++line) {
        if (line % 9 == 8)
            continue;
        const int32_t end = line % 9 == 7 ? width / 2 : width - margin;
        for (int32_t x = margin; x + GlyphWidth < end; x += GlyphWidth)
            if (random() % 6 != 0)
                drawGlyph(page, x, margin + line * LineHeight, random);
    }
    return page;
}

Raster scannedPage(PixelFormat format, int32_t width, int32_t height) {
    const Raster print = textPage(width, height);
    Raster page = makeRaster(format, width, height);
    page.xResolution = page.yResolution = 300;
    std::mt19937 random(21);
    const size_t channels = format == PixelFormat::Rgb ? 3 : 1;
    for (int32_t y = 0; y < height; ++y) {
        const auto bits = print.row(y);
        const auto row = page.row(y);
        int32_t value = 235;
        for (size_t x = 0; x < static_cast<size_t>(width); ++x) {
            const bool ink = ((bits[x / 8] >> (7 - x % 8)) & 1U) != 0;
            value += ((ink ? 30 : 235) - value) * 3 / 4;
            for (size_t c = 0; c < channels; ++c)
                row[x * channels + c] = static_cast<uint8_t>(value + static_cast<int32_t>(random() % 15) - 7);
        }
    }
    return page;
}

} // namespace pixmo::bench
