#include "bench/imaging/leptonica.h"
#include "bench/imaging/rows.h"
#include "bench/pages.h"
#include "core/imaging/reducer.h"

#ifdef PIXMO_BENCH_QT
#include <QImage>
#endif

#include <algorithm>
#include <cstring>
#include <iterator>
#include <string>

namespace pixmo::bench {

namespace {

constexpr int32_t LetterWidth = 2550;
constexpr int32_t LetterHeight = 3300;

using Pixels = std::shared_ptr<std::vector<uint32_t>>;

Pixels pixelsFor(Size size) {
    return std::make_shared<std::vector<uint32_t>>(static_cast<size_t>(size.width) *
                                                   static_cast<size_t>(size.height));
}

PixelSurface surfaceOf(const Pixels& pixels, Size size) {
    return {pixels->data(), size.width, size.height, static_cast<size_t>(size.width)};
}

#ifdef PIXMO_BENCH_QT
/// The image refers to the page.
QImage imageOf(const Raster& page) {
    const auto format = page.format == PixelFormat::Bilevel ? QImage::Format_Mono
                        : page.format == PixelFormat::Gray  ? QImage::Format_Grayscale8
                                                            : QImage::Format_RGB888;
    QImage image(page.pixels.data(), page.width, page.height, static_cast<qsizetype>(page.stride), format);
    if (page.format == PixelFormat::Bilevel)
        image.setColorTable({0xFFFFFFFF, 0xFF000000});
    return image;
}

std::vector<Contender> qtReductions(const Page& page, Size size) {
    const QImage image = imageOf(*page);
    const auto scaled = [=](const QImage& from) {
        const QImage result =
            from.scaled(size.width, size.height, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        if (result.isNull())
            throw std::runtime_error("a peer failed");
    };
    if (page->format != PixelFormat::Bilevel)
        return {{"Qt scaled, smooth", [=] { scaled(image); }}};
    return {{"Qt 1-to-8, scaled, smooth", [=] { scaled(image.convertToFormat(QImage::Format_Grayscale8)); }}};
}
#endif

Row reductionRow(const std::string& name, const Page& page, Size size) {
    const Pixels pixels = pixelsFor(size);
    Row row{name + " to " + std::to_string(size.width) + "x" + std::to_string(size.height), {}};
    row.contenders.push_back({"ours", [=] { drawPicture(*page, surfaceOf(pixels, size)); }});
#ifdef PIXMO_BENCH_LEPTONICA
    std::ranges::move(leptonicaReductions(page, size), std::back_inserter(row.contenders));
#endif
#ifdef PIXMO_BENCH_QT
    std::ranges::move(qtReductions(page, size), std::back_inserter(row.contenders));
#endif
    return row;
}

/// A window's worth of a page at its own size, against setting the memory of the window.
Row panRow(const Page& page) {
    constexpr Size window{1200, 1000};
    const Pixels pixels = pixelsFor(window);
    const auto pan = [=] {
        drawPicture(*page, wholePicture(*page), surfaceOf(pixels, window),
                    {-301, -300, page->width, page->height}, {0, 0, window.width, window.height},
                    BilevelLook::ScaleToGray);
    };
    const auto clear = [=] { std::memset(pixels->data(), 0x7F, pixels->size() * sizeof(uint32_t)); };
    return {"pan 1:1 1-bit 1200x1000", {{"ours", pan}, {"memset of the window", clear}}};
}

} // namespace

std::vector<Row> reductionRows() {
    const auto text = std::make_shared<const Raster>(textPage(LetterWidth, LetterHeight));
    const auto gray =
        std::make_shared<const Raster>(scannedPage(PixelFormat::Gray, LetterWidth, LetterHeight));
    const auto colour =
        std::make_shared<const Raster>(scannedPage(PixelFormat::Rgb, LetterWidth, LetterHeight));
    return {
        reductionRow("1-bit letter", text, {800, 1035}),    reductionRow("1-bit letter", text, {1600, 2071}),
        reductionRow("1-bit letter", text, {100, 129}),     reductionRow("gray letter", gray, {800, 1035}),
        reductionRow("colour letter", colour, {800, 1035}), panRow(text)};
}

} // namespace pixmo::bench
