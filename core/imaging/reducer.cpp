#include "core/imaging/reducer.h"

#include "core/imaging/axis.h"
#include "core/imaging/bilevelsums.h"
#include "core/imaging/pixelcopy.h"
#include "core/imaging/tonesums.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

namespace pixmo {

namespace {

using Palette = std::array<uint32_t, 256>;

/// Turns weighted sums into levels; 54 bits behind the point leave room for levels up to 2^9.
class LevelScale {
public:
    /// A sum of `whole` is level `top`; `rounding` is added before the fraction is dropped.
    LevelScale(double top, double whole, double rounding)
        : factor_(static_cast<uint64_t>(std::llround(top / whole * One))),
          rounding_(static_cast<uint64_t>(rounding * One)) {}

    uint32_t operator()(uint64_t sum) const {
        return static_cast<uint32_t>((sum * factor_ + rounding_) >> 54U);
    }

private:
    static constexpr double One = 18014398509481984.0; // 2^54

    uint64_t factor_;
    uint64_t rounding_;
};

/// How the sums of a 1-bit picture become colours.
struct InkScale {
    Palette palette{};
    double top = 255;
    double rounding = 0.5;
};

uint32_t mixed(uint32_t from, uint32_t to, uint32_t level) {
    uint32_t colour = 0xFF000000U;
    for (const unsigned shift : {0U, 8U, 16U}) {
        const uint32_t a = (from >> shift) & 0xFFU;
        const uint32_t b = (to >> shift) & 0xFFU;
        colour |= (a * (255 - level) + b * level + 127) / 255 << shift;
    }
    return colour;
}

InkScale inkScale(const Raster& raster, BilevelLook look) {
    const auto [paper, ink] = raster.bilevelColours;
    InkScale scale;
    if (look == BilevelLook::ScaleToGray) {
        for (uint32_t level = 0; level < scale.palette.size(); ++level)
            scale.palette[level] = mixed(paper, ink, level);
        return scale;
    }
    // Levels are full quarters; what fixed point loses of a quarter is made up for.
    scale.palette.fill(mixed(paper, ink, 255));
    scale.palette[0] = mixed(paper, ink, 0);
    scale.top = 4;
    scale.rounding = 0.002;
    return scale;
}

constexpr uint32_t grayColour(uint32_t level) {
    return 0xFF000000U | level * 0x010101U;
}

/// The mapping of a drawing and the part of it that is drawn.
struct Mapping {
    Axis x;
    Axis y;
    Rectangle destination;
    Rectangle clip; ///< inside of the surface and the destination

    int64_t firstColumn() const { return int64_t{clip.left} - destination.left; }
    int64_t firstRow() const { return int64_t{clip.top} - destination.top; }
};

/// Calls put(pixel, sums of the channels) for the pixels of one destination row from begin to end. `sums`
/// counts from the source column `base`.
template <size_t Channels, typename Sum, typename Put>
void sumReduced(const Sum* sums, int32_t base, const ColumnMark* marks, size_t begin, size_t end,
                const Put& put) {
    const auto sumAt = [=](const ColumnMark& edge, size_t channel) {
        const Sum* at = sums + static_cast<size_t>(edge.index - base) * Channels + channel;
        const Sum column = at[Channels] - at[0];
        return static_cast<Sum>(at[0] + (column * edge.fraction >> ColumnBits));
    };
    std::array<Sum, Channels> left{};
    for (size_t c = 0; c < Channels; ++c)
        left[c] = sumAt(marks[begin], c);
    for (size_t x = begin; x < end; ++x) {
        std::array<uint64_t, Channels> pixel{};
        for (size_t c = 0; c < Channels; ++c) {
            const Sum right = sumAt(marks[x + 1], c);
            pixel[c] = static_cast<Sum>(right - left[c]);
            left[c] = right;
        }
        put(x, pixel);
    }
}

template <size_t Channels, typename Sum, typename Put>
void sumEnlarged(const Sum* sums, int32_t base, const ColumnMark* marks, size_t begin, size_t end,
                 const Put& put) {
    for (size_t x = begin; x < end; ++x) {
        std::array<uint64_t, Channels> pixel{};
        for (size_t c = 0; c < Channels; ++c) {
            const Sum* at = sums + static_cast<size_t>(marks[x].index - base) * Channels + c;
            const uint64_t column = static_cast<Sum>(at[Channels] - at[0]);
            const uint64_t next = static_cast<Sum>(at[2 * Channels] - at[Channels]);
            pixel[c] = column * marks[x].fraction + next * (ColumnOne - marks[x].fraction);
        }
        put(x, pixel);
    }
}

/// Weighted source columns a destination pixel covers, in the unit of the sums.
double columnsCovered(const Axis& axis) {
    return axis.reduces() ? axis.step : static_cast<double>(ColumnOne);
}

template <size_t Channels, typename Sum, typename Put>
void sumPixels(const Axis& axis, const Sum* sums, int32_t base, const ColumnMark* marks, size_t begin,
               size_t end, const Put& put) {
    if (axis.reduces())
        sumReduced<Channels>(sums, base, marks, begin, end, put);
    else
        sumEnlarged<Channels>(sums, base, marks, begin, end, put);
}

/// The source columns that the marks need.
BilevelSums::Columns columnsOf(const Axis& axis, const std::vector<ColumnMark>& marks) {
    return {std::min(marks.front().index, axis.limit - 1), std::min(marks.back().index + 2, axis.limit)};
}

/// Draws the rows of a mapping; a row that shows the same as the one before is copied.
template <typename DrawRow>
void drawRows(const PixelSurface& surface, const Mapping& map, uint32_t weight, const DrawRow& drawRow) {
    RowShare previous;
    for (int32_t y = 0; y < map.clip.height; ++y) {
        const RowShare share = rowShare(map.y, map.firstRow() + y, weight);
        uint32_t* out = surface.row(map.clip.top + y).data() + map.clip.left;
        if (y > 0 && share == previous)
            std::copy_n(out - surface.stride, map.clip.width, out);
        else
            drawRow(share, out);
        previous = share;
    }
}

/// Which destination pixels show anything of a run of source columns.
class InkedPixels {
public:
    InkedPixels(const Axis& axis, const std::vector<ColumnMark>& marks, int32_t firstColumn, int32_t width)
        : firstColumn_(firstColumn), first_(blockOf(marks.back().index) + 3), beyond_(first_.size()) {
        // A pixel reaches from its own mark to the next one's column, or while enlarging to the next column.
        const auto lastColumn = [&](size_t x) {
            return axis.reduces() ? marks[x + 1].index : marks[x].index + 1;
        };
        const auto pixels = static_cast<size_t>(width);
        size_t x = 0;
        size_t end = 0;
        for (size_t block = 0; block < first_.size(); ++block) {
            const int32_t column = firstColumn + static_cast<int32_t>(block * BlockSize);
            while (x < pixels && lastColumn(x) < column)
                ++x;
            while (end < pixels && marks[end].index < column)
                ++end;
            first_[block] = x;
            beyond_[block] = end;
        }
    }

    size_t first(int32_t column) const { return first_[blockOf(column)]; }
    /// `column` is the first one outside of the run.
    size_t beyond(int32_t column) const { return beyond_[blockOf(column + BlockSize - 1)]; }

private:
    static constexpr int32_t BlockSize = 64;

    size_t blockOf(int32_t column) const { return static_cast<size_t>((column - firstColumn_) / BlockSize); }

    int32_t firstColumn_;
    std::vector<size_t> first_;  ///< pixel that shows the first column of a block, or the first one after
    std::vector<size_t> beyond_; ///< first pixel wholly at or right of the block's first column
};

void drawBilevel(const Raster& raster, const PixelSurface& surface, const Mapping& map, BilevelLook look) {
    const std::vector<ColumnMark> marks = columnMarks(map.x, map.firstColumn(), map.clip.width);
    BilevelSums sums(raster, columnsOf(map.x, marks));
    const InkedPixels inkedPixels(map.x, marks, sums.firstColumn(), map.clip.width);
    const InkScale ink = inkScale(raster, look);
    drawRows(surface, map, BilevelSums::MaxWeight, [&](const RowShare& share, uint32_t* out) {
        sums.build(share);
        const LevelScale level(ink.top, static_cast<double>(share.total()) * columnsCovered(map.x),
                               ink.rounding);
        size_t done = 0;
        for (const BilevelSums::Columns& run : sums.inked()) {
            const size_t begin = std::max(done, inkedPixels.first(run.begin));
            const size_t end = std::max(begin, inkedPixels.beyond(run.end));
            std::fill(out + done, out + begin, ink.palette[0]);
            sumPixels<1>(map.x, sums.sums(), sums.firstColumn(), marks.data(), begin, end,
                         [&](size_t x, const auto& sum) { out[x] = ink.palette[level(sum[0])]; });
            done = end;
        }
        std::fill(out + done, out + map.clip.width, ink.palette[0]);
    });
}

template <size_t Channels>
void drawTones(const Raster& raster, const PixelSurface& surface, const Mapping& map) {
    const std::vector<ColumnMark> marks = columnMarks(map.x, map.firstColumn(), map.clip.width);
    const BilevelSums::Columns columns = columnsOf(map.x, marks);
    ToneSums sums(raster, columns.begin, columns.end);
    drawRows(surface, map, ToneSums::MaxWeight, [&](const RowShare& share, uint32_t* out) {
        sums.build(share);
        const LevelScale level(1, static_cast<double>(share.total()) * columnsCovered(map.x), 0.5);
        sumPixels<Channels>(map.x, sums.sums(), columns.begin, marks.data(), 0,
                            static_cast<size_t>(map.clip.width), [&](size_t x, const auto& sum) {
                                if constexpr (Channels == 1)
                                    out[x] = grayColour(level(sum[0]));
                                else
                                    out[x] = 0xFF000000U | level(sum[0]) << 16U | level(sum[1]) << 8U |
                                             level(sum[2]);
                            });
    });
}

RealRectangle cut(const RealRectangle& source, const Raster& raster) {
    const RealRectangle whole = wholePicture(raster);
    const double left = std::clamp(source.left, 0.0, whole.width);
    const double top = std::clamp(source.top, 0.0, whole.height);
    return {left, top, std::min(source.left + source.width, whole.width) - left,
            std::min(source.top + source.height, whole.height) - top};
}

bool isGray(uint32_t colour) {
    return grayColour(colour & 0xFFU) == (colour | 0xFF000000U);
}

} // namespace

RealRectangle wholePicture(const Raster& raster) {
    return {0, 0, static_cast<double>(raster.width), static_cast<double>(raster.height)};
}

void drawPicture(const Raster& raster, const RealRectangle& source, const PixelSurface& surface,
                 const Rectangle& destination, const Rectangle& clip, BilevelLook look) {
    const Rectangle onSurface = intersection(clip, {0, 0, surface.width, surface.height});
    Mapping map;
    map.destination = destination;
    map.clip = intersection(destination, onSurface);
    const RealRectangle part = cut(source, raster);
    if (raster.empty() || map.clip.empty() || !(part.width > 0) || !(part.height > 0))
        return;
    map.x = {part.left, part.width / destination.width, raster.width};
    map.y = {part.top, part.height / destination.height, raster.height};
    if (map.x.isIdentity() && map.y.isIdentity())
        copyPixels(raster, static_cast<int32_t>(part.left + static_cast<double>(map.firstColumn())),
                   static_cast<int32_t>(part.top + static_cast<double>(map.firstRow())), surface, map.clip);
    else if (raster.format == PixelFormat::Bilevel)
        drawBilevel(raster, surface, map, look);
    else if (raster.format == PixelFormat::Gray)
        drawTones<1>(raster, surface, map);
    else
        drawTones<3>(raster, surface, map);
}

void drawPicture(const Raster& raster, const PixelSurface& surface) {
    const Rectangle all{0, 0, surface.width, surface.height};
    drawPicture(raster, wholePicture(raster), surface, all, all, BilevelLook::ScaleToGray);
}

Size sizeInside(const Raster& raster, Size bounds) {
    const double width = raster.width / raster.xResolution;
    const double height = raster.height / raster.yResolution;
    const double scale = std::min(bounds.width / width, bounds.height / height);
    const auto inside = [](double length, int32_t bound) {
        return std::clamp(static_cast<int32_t>(std::lround(length)), 1, std::max(1, bound));
    };
    return {inside(width * scale, bounds.width), inside(height * scale, bounds.height)};
}

Raster resized(const Raster& raster, Size size) {
    std::vector<uint32_t> pixels(static_cast<size_t>(size.width) * static_cast<size_t>(size.height));
    const PixelSurface surface{pixels.data(), size.width, size.height, static_cast<size_t>(size.width)};
    drawPicture(raster, surface);
    const bool gray = raster.format == PixelFormat::Gray ||
                      (raster.format == PixelFormat::Bilevel && isGray(raster.bilevelColours[0]) &&
                       isGray(raster.bilevelColours[1]));
    Raster result = makeRaster(gray ? PixelFormat::Gray : PixelFormat::Rgb, size.width, size.height);
    result.xResolution = raster.xResolution * size.width / raster.width;
    result.yResolution = raster.yResolution * size.height / raster.height;
    auto out = result.pixels.begin();
    for (const uint32_t pixel : pixels) {
        if (!gray) {
            *out++ = static_cast<uint8_t>(pixel >> 16U);
            *out++ = static_cast<uint8_t>(pixel >> 8U);
        }
        *out++ = static_cast<uint8_t>(pixel);
    }
    return result;
}

} // namespace pixmo
