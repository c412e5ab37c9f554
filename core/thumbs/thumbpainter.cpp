#include "core/thumbs/thumbpainter.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace pixmo {

namespace {

/// Width by height of the outline that stands for a page not yet seen.
constexpr double UsualProportion = 8.5 / 11;
constexpr uint32_t SelectionAlpha = 72;
constexpr double SelectionRadius = 4;
constexpr double CurrentFrame = 2; ///< width of the frame around the page on screen
constexpr double NoticeMargin = 16;
constexpr double PillMargin = 6; ///< beside the number of a selected page

/// How far the outline of a page stands out from what is behind it, 0 to 1.
constexpr double PaperTone = 0.06;
constexpr double LineTone = 0.35;

RealRectangle real(const Rectangle& r) {
    return {static_cast<double>(r.left), static_cast<double>(r.top), static_cast<double>(r.width),
            static_cast<double>(r.height)};
}

RealRectangle grown(const RealRectangle& r, double by) {
    return {r.left - by, r.top - by, r.width + 2 * by, r.height + 2 * by};
}

bool isDark(uint32_t rgb) {
    const auto part = [rgb](uint32_t shift) { return rgb >> shift & 0xFFU; };
    return std::max({part(16), part(8), part(0)}) + std::min({part(16), part(8), part(0)}) < 255;
}

} // namespace

ThumbPainter::ThumbPainter(dlgThumbs& thumbs, const PixelSurface& surface, const Look& look,
                           TextMeasure measure)
    : thumbs_(thumbs), surface_(surface), look_(look), measure_(std::move(measure)),
      painter_(surface, look.ratio) {}

/// Between the colours of background and text, on light palettes and dark ones.
uint32_t ThumbPainter::towardsText(double share) const {
    const uint32_t mixed =
        blendOver(Opaque | look_.palette.base, Opaque | look_.palette.text, static_cast<float>(share));
    return mixed & 0xFFFFFFU;
}

/// Edges on device pixels.
RealRectangle ThumbPainter::centred(double width, double height, const RealRectangle& room) const {
    const auto snapped = [this](double length) { return std::round(length * look_.ratio) / look_.ratio; };
    return {snapped(room.left + (room.width - width) / 2), snapped(room.top + (room.height - height) / 2),
            snapped(width), snapped(height)};
}

Rectangle ThumbPainter::onDevice(const RealRectangle& r) const {
    const auto device = [this](double length) {
        return static_cast<int32_t>(std::lround(length * look_.ratio));
    };
    return {device(r.left), device(r.top), device(r.width), device(r.height)};
}

RealRectangle ThumbPainter::noticeRoom() const {
    const Size view = thumbs_.grid().viewport();
    return grown({0, 0, 0.0 + view.width, 0.0 + view.height}, -NoticeMargin);
}

std::vector<TextRun> ThumbPainter::paint() {
    for (int32_t y = 0; y < surface_.height; ++y)
        std::ranges::fill(surface_.row(y), Opaque | look_.palette.base);
    texts_.clear();
    const ThumbGrid::Range range = thumbs_.grid().visible();
    for (int32_t item = range.first; item < range.end; ++item)
        paintItem(item);
    if (thumbs_.isBandShown())
        paintBand();
    if (const std::string notice = thumbs_.notice(); !notice.empty())
        texts_.push_back({onDevice(noticeRoom()), notice, false, look_.palette.placeholder, true});
    return texts_;
}

void ThumbPainter::paintItem(int32_t item) {
    const Rectangle cell = thumbs_.grid().cell(item);
    const auto page = static_cast<int16_t>(item + 1);
    if (thumbs_.selection().isSelected(item))
        paintSelection(cell);
    const RealRectangle room = pictureRoom(cell);
    RealRectangle paper;
    if (const ThumbPicture* const picture = thumbs_.picture(page)) {
        paper = paintPicture(*picture, room);
    } else {
        paper = paintOutline(room);
        if (thumbs_.state(page) == ThumbState::Failed)
            paintBroken(paper);
        else if (thumbs_.state(page) == ThumbState::Loading)
            paintWaiting(paper);
    }
    if (page == thumbs_.currentPage())
        paintCurrent(paper);
    paintNumber(item, cell);
    if (look_.focused && item == thumbs_.selection().focus())
        paintFocus(cell);
}

void ThumbPainter::paintCurrent(const RealRectangle& page) {
    painter_.frame(grown(page, CurrentFrame + 1), CurrentFrame, Opaque | look_.palette.highlight);
}

void ThumbPainter::paintSelection(const Rectangle& cell) {
    Path outline;
    outline.addRoundedRectangle(grown(real(cell), -1.5), SelectionRadius);
    painter_.fill(outline, withAlpha(look_.palette.highlight, SelectionAlpha));
    painter_.stroke(outline, 1, Opaque | look_.palette.highlight);
}

RealRectangle ThumbPainter::pictureRoom(const Rectangle& cell) const {
    const Size size = thumbs_.grid().pictureSize();
    return real({cell.left + ThumbGrid::Margin, cell.top + ThumbGrid::Margin, size.width, size.height});
}

RealRectangle ThumbPainter::paintPicture(const ThumbPicture& picture, const RealRectangle& room) {
    const double widest = std::round(room.width * look_.ratio);
    const double highest = std::round(room.height * look_.ratio);
    // 1 but for a picture of a former size.
    double scale = std::min(widest / picture.size.width, highest / picture.size.height);
    if (std::abs(scale - 1) * std::max(widest, highest) < 1)
        scale = 1;
    const RealRectangle page =
        centred(picture.size.width * scale / look_.ratio, picture.size.height * scale / look_.ratio, room);
    paintBorder(page);
    copyPicture(picture, page);
    return page;
}

/// The nearest pixel of a picture of another size, which is shown for a moment only.
void ThumbPainter::copyPicture(const ThumbPicture& picture, const RealRectangle& page) {
    const Rectangle place = onDevice(page);
    const Rectangle seen = intersection(place, {0, 0, surface_.width, surface_.height});
    for (int32_t y = seen.top; y < seen.bottom(); ++y) {
        const auto from = static_cast<int64_t>(y - place.top) * picture.size.height / place.height;
        const auto row = surface_.row(y);
        for (int32_t x = seen.left; x < seen.right(); ++x) {
            const auto at = static_cast<int64_t>(x - place.left) * picture.size.width / place.width;
            row[static_cast<size_t>(x)] = picture.pixels[static_cast<size_t>(from * picture.size.width + at)];
        }
    }
}

RealRectangle ThumbPainter::paintOutline(const RealRectangle& room) {
    const double width = std::min(room.width, room.height * UsualProportion);
    const RealRectangle page = centred(width, width / UsualProportion, room);
    paintBorder(page);
    painter_.fill(page, Opaque | towardsText(PaperTone));
    return page;
}

/// A thin border and a soft shadow around the paper.
void ThumbPainter::paintBorder(const RealRectangle& page) {
    const double line = 1 / look_.ratio;
    painter_.frame(grown(page, line), line, Opaque | towardsText(LineTone));
    RealRectangle lowered = grown(page, line);
    lowered.top += line;
    constexpr std::array<uint32_t, 3> Shades = {36, 18, 8};
    for (size_t ring = 0; ring < Shades.size(); ++ring)
        painter_.frame(grown(lowered, static_cast<double>(ring + 1)), 1, withAlpha(0, Shades.at(ring)));
}

/// Three dots.
void ThumbPainter::paintWaiting(const RealRectangle& page) {
    const double radius = std::max(1.5, page.width / 40);
    const RealPoint middle = {page.left + page.width / 2, page.top + page.height / 2};
    for (const double place : {-3.0, 0.0, 3.0}) {
        Path dot;
        dot.addEllipse({middle.x + place * radius, middle.y}, radius);
        painter_.fill(dot, Opaque | look_.palette.placeholder);
    }
}

/// A page torn across, with a cross in the upper half, of the colour of what failed.
void ThumbPainter::paintBroken(const RealRectangle& page) {
    paintTear(page);
    const uint32_t failed = isDark(look_.palette.base) ? 0xFFF07A70 : 0xFFB02A2A;
    const double arm = page.width / 11;
    const RealPoint middle = {page.left + page.width / 2, page.top + page.height / 4};
    Path cross;
    cross.moveTo({middle.x - arm, middle.y - arm});
    cross.lineTo({middle.x + arm, middle.y + arm});
    cross.moveTo({middle.x - arm, middle.y + arm});
    cross.lineTo({middle.x + arm, middle.y - arm});
    painter_.stroke(cross, std::max(1.5, page.width / 36), failed);
}

/// What lies between the two edges of the tear is gone.
void ThumbPainter::paintTear(const RealRectangle& page) {
    constexpr std::array<double, 7> Tear = {0.0, -1.0, 0.6, -0.6, 1.0, -0.4, 0.4};
    const double step = page.width / (Tear.size() - 1);
    const double depth = page.height / 14;
    const double half = page.height / 22;
    const auto place = [&](size_t i, double below) {
        return RealPoint{page.left + static_cast<double>(i) * step,
                         page.top + page.height / 2 + Tear.at(i) * depth + below};
    };
    Path gap;
    Path edges;
    for (const double side : {-half, half}) {
        edges.moveTo(place(0, side));
        for (size_t i = 1; i < Tear.size(); ++i)
            edges.lineTo(place(i, side));
    }
    gap.moveTo(place(0, -half));
    for (size_t i = 1; i < Tear.size(); ++i)
        gap.lineTo(place(i, -half));
    for (size_t i = Tear.size(); i > 0; --i)
        gap.lineTo(place(i - 1, half));
    painter_.fill(gap, Opaque | look_.palette.base);
    painter_.stroke(edges, 1, Opaque | towardsText(LineTone));
}

void ThumbPainter::paintNumber(int32_t item, const Rectangle& cell) {
    const int32_t height = ThumbGrid::NumberHeight;
    const RealRectangle line =
        real({cell.left, cell.bottom() - height - ThumbGrid::Margin / 2, cell.width, height});
    TextRun run;
    run.text = std::to_string(item + 1);
    run.place = onDevice(line);
    run.bold = item + 1 == thumbs_.currentPage();
    const bool selected = thumbs_.selection().isSelected(item);
    run.rgb = selected ? look_.palette.highlightedText : look_.palette.text;
    if (selected) {
        const Size size = measure_(run.text, run.bold, 0);
        const double pillHeight = std::min(height - 2.0, size.height / look_.ratio + 2);
        Path pill;
        pill.addRoundedRectangle(centred(size.width / look_.ratio + 2 * PillMargin, pillHeight, line),
                                 pillHeight / 2);
        painter_.fill(pill, Opaque | look_.palette.highlight);
    }
    texts_.push_back(std::move(run));
}

/// Dots along the edges.
void ThumbPainter::paintFocus(const Rectangle& cell) {
    constexpr int32_t Inset = 3;
    const uint32_t colour = Opaque | look_.palette.text;
    const auto dot = [&](int32_t x, int32_t y) {
        painter_.fill(RealRectangle{static_cast<double>(x), static_cast<double>(y), 1, 1}, colour);
    };
    const int32_t right = cell.right() - Inset - 1;
    const int32_t bottom = cell.bottom() - Inset - 1;
    for (int32_t x = cell.left + Inset; x <= right; x += 2) {
        dot(x, cell.top + Inset);
        dot(x, bottom);
    }
    for (int32_t y = cell.top + Inset; y <= bottom; y += 2) {
        dot(cell.left + Inset, y);
        dot(right, y);
    }
}

void ThumbPainter::paintBand() {
    const RealRectangle band = real(thumbs_.band());
    painter_.fill(band, withAlpha(look_.palette.highlight, SelectionAlpha / 2));
    painter_.frame(band, 1, Opaque | look_.palette.highlight);
}

} // namespace pixmo
