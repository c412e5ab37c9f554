#include "bench/imaging/leptonica.h"

#include <leptonica/allheaders.h>

#include <stdexcept>

namespace pixmo::bench {

namespace {

using Pix = std::shared_ptr<PIX>;

Pix owned(PIX* pix) {
    if (!pix)
        throw std::runtime_error("a peer failed");
    return {pix, [](PIX* p) { pixDestroy(&p); }};
}

void copyRow(const Raster& page, int32_t y, l_uint32* line) {
    const auto row = page.row(y);
    for (int32_t x = 0; x < page.width; ++x) {
        const auto at = static_cast<size_t>(x);
        if (page.format == PixelFormat::Bilevel) {
            if ((row[at / 8] >> (7 - at % 8)) & 1U)
                SET_DATA_BIT(line, x);
        } else if (page.format == PixelFormat::Gray) {
            SET_DATA_BYTE(line, x, row[at]);
        } else {
            composeRGBPixel(row[3 * at], row[3 * at + 1], row[3 * at + 2], line + x);
        }
    }
}

Pix pixOf(const Raster& page) {
    const int depth = page.format == PixelFormat::Bilevel ? 1 : page.format == PixelFormat::Gray ? 8 : 32;
    Pix pix = owned(pixCreate(page.width, page.height, depth));
    for (int32_t y = 0; y < page.height; ++y)
        copyRow(page, y, pixGetData(pix.get()) + static_cast<ptrdiff_t>(y) * pixGetWpl(pix.get()));
    return pix;
}

} // namespace

std::vector<Contender> leptonicaReductions(const Page& page, Size size) {
    const Pix pix = pixOf(*page);
    const auto x = static_cast<float>(size.width) / static_cast<float>(page->width);
    const auto y = static_cast<float>(size.height) / static_cast<float>(page->height);
    if (page->format != PixelFormat::Bilevel)
        return {{"Leptonica pixScaleAreaMap", [=] { owned(pixScaleAreaMap(pix.get(), x, y)); }}};
    return {{"Leptonica pixScaleToGray", [=] { owned(pixScaleToGray(pix.get(), x)); }},
            {"Leptonica 1-to-8, pixScaleAreaMap", [=] {
                 const Pix gray = owned(pixConvertTo8(pix.get(), 0));
                 owned(pixScaleAreaMap(gray.get(), x, y));
             }}};
}

Contender leptonicaQuarterTurn(const Page& page) {
    const Pix pix = pixOf(*page);
    return {"Leptonica pixRotateOrth", [=] { owned(pixRotateOrth(pix.get(), 1)); }};
}

} // namespace pixmo::bench
