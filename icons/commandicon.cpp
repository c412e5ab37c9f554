#include "icons/commandicon.h"

#include "codecs/pagecodecs.h"
#include "core/imaging/reducer.h"
#include "icons/drawings.h"

#include <algorithm>
#include <array>
#include <utility>

namespace pixmo {

namespace {

/// The keys of the commands, and the drawing of each.
constexpr auto IconNames = std::to_array<std::pair<std::string_view, std::string_view>>({
    {"THUMBS", "layout-grid"},
    {"PRINT", "printer"},
    {"QUICKPRINT", "printer-check"},
    {"CANCEL", "circle-x"},
    {"PAN", "hand"},
    {"SELECTION", "scan-search"},
    {"ROTL", "rotate-ccw"},
    {"ROTR", "rotate-cw"},
    {"PAGEPREV", "chevron-left"},
    {"PAGENEXT", "chevron-right"},
    {"PAGEFIRST", "chevron-first"},
    {"PAGELAST", "chevron-last"},
    {"PAGEGOTO", "file-input"},
    {"FITBEST", "fullscreen"},
    {"FITHEIGHT", "move-vertical"},
    {"FITWIDTH", "move-horizontal"},
    {"STAR", "bookmark"},
    {"ZOOMIN", "zoom-in"},
    {"ZOOMOUT", "zoom-out"},
    {"GRAYSCALE", "contrast"},
    {"COPY", "copy"},
    {"SAVEPAGE", "save"},
    {"IMAGEINFO", "info"},
    {"SHOWLOG", "scroll-text"},
    {"LARGER", "zoom-in"},
    {"SMALLER", "zoom-out"},
    {"SELECTALL", "copy-check"},
});

std::span<const uint8_t> drawingOf(std::string_view key) {
    const auto icon =
        std::find_if(IconNames.begin(), IconNames.end(), [key](const auto& row) { return row.first == key; });
    if (icon == IconNames.end())
        return {};
    const auto all = drawings();
    const auto drawing = std::find_if(all.begin(), all.end(),
                                      [icon](const Drawing& each) { return each.name == icon->second; });
    return drawing == all.end() ? std::span<const uint8_t>() : drawing->png;
}

/// A raster of black on white: what is not white is covered.
std::vector<uint8_t> coverageOf(const Raster& raster) {
    const auto size = static_cast<size_t>(raster.width);
    const size_t step = raster.format == PixelFormat::Rgb ? 3 : 1;
    std::vector<uint8_t> coverage;
    coverage.reserve(size * size);
    for (int32_t y = 0; y < raster.height; ++y)
        for (size_t x = 0; x < size; ++x)
            coverage.push_back(static_cast<uint8_t>(255 - raster.row(y)[x * step]));
    return coverage;
}

constexpr std::array<std::string_view, 5> Directional = {"PAGEPREV", "PAGENEXT", "PAGEFIRST", "PAGELAST",
                                                         "PAGEGOTO"};

} // namespace

std::vector<uint8_t> commandIcon(std::string_view key, int32_t size) {
    const auto png = drawingOf(key);
    if (png.empty() || size < 1)
        return {};
    return coverageOf(resized(PageCodecs().decode(png), {size, size}));
}

bool hasCommandIcon(std::string_view key) {
    return !drawingOf(key).empty();
}

bool isIconDirectional(std::string_view key) {
    return std::find(Directional.begin(), Directional.end(), key) != Directional.end();
}

} // namespace pixmo
