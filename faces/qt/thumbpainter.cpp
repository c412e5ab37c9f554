#include "faces/qt/thumbpainter.h"

#include "faces/qt/thumbsview.h"

#include <QImage>
#include <QPainter>
#include <QPainterPath>
#include <QStyle>
#include <QStyleOptionFocusRect>
#include <algorithm>
#include <array>
#include <cmath>

namespace pixmo::qt {

namespace {

/// Of the page outline that stands for a page not yet seen.
constexpr double UsualProportion = 8.5 / 11;
constexpr int SelectionAlpha = 72;
constexpr double SelectionRadius = 4;
constexpr double CurrentFrame = 2; ///< width of the frame around the page on screen

/// Slanted and round things get smooth edges; all else is quicker without.
class Smooth {
public:
    explicit Smooth(QPainter& painter) : painter_(painter) {
        painter_.setRenderHint(QPainter::Antialiasing, true);
    }
    ~Smooth() { painter_.setRenderHint(QPainter::Antialiasing, false); }
    Smooth(const Smooth&) = delete;
    Smooth& operator=(const Smooth&) = delete;

private:
    QPainter& painter_;
};

} // namespace

ThumbPainter::ThumbPainter(const ThumbsView& view, dlgThumbs& thumbs, QPainter& painter)
    : view_(view), thumbs_(thumbs), painter_(painter), ratio_(view.devicePixelRatioF()) {}

QColor ThumbPainter::colour(QPalette::ColorRole role) const {
    return view_.palette().color(role);
}

/// Edges on device pixels.
QRectF ThumbPainter::aligned(const QRectF& rectangle) const {
    const auto snapped = [this](double length) { return std::round(length * ratio_) / ratio_; };
    return {snapped(rectangle.x()), snapped(rectangle.y()), snapped(rectangle.width()),
            snapped(rectangle.height())};
}

void ThumbPainter::paint() {
    const ThumbGrid::Range range = thumbs_.grid().visible();
    for (int item = range.first; item < range.end; ++item)
        paintItem(item);
    if (thumbs_.isBandShown())
        paintBand();
}

void ThumbPainter::paintItem(int item) {
    const QRect cell = view_.cell(item);
    const auto page = static_cast<int16_t>(item + 1);
    if (thumbs_.selection().isSelected(item))
        paintSelection(cell);
    const QRectF room = pictureRoom(cell);
    QRectF paper;
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
}

void ThumbPainter::paintCurrent(const QRectF& page) {
    const Smooth smooth(painter_);
    const double half = CurrentFrame / 2 + 1;
    painter_.setBrush(Qt::NoBrush);
    painter_.setPen(
        QPen(colour(QPalette::Highlight), CurrentFrame, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
    painter_.drawRect(page.adjusted(-half, -half, half, half));
}

void ThumbPainter::paintSelection(const QRect& cell) {
    const Smooth smooth(painter_);
    QColor fill = colour(QPalette::Highlight);
    fill.setAlpha(SelectionAlpha);
    painter_.setBrush(fill);
    painter_.setPen(QPen(colour(QPalette::Highlight), 1));
    painter_.drawRoundedRect(QRectF(cell).adjusted(1.5, 1.5, -1.5, -1.5), SelectionRadius, SelectionRadius);
}

QRectF ThumbPainter::pictureRoom(const QRect& cell) const {
    const Size size = thumbs_.grid().pictureSize();
    return {static_cast<double>(cell.x() + ThumbGrid::Margin),
            static_cast<double>(cell.y() + ThumbGrid::Margin), static_cast<double>(size.width),
            static_cast<double>(size.height)};
}

QRectF ThumbPainter::paintPicture(const ThumbPicture& picture, const QRectF& room) {
    const double widest = std::round(room.width() * ratio_);
    const double highest = std::round(room.height() * ratio_);
    // 1 but for a picture of a former size.
    double scale = std::min(widest / picture.size.width, highest / picture.size.height);
    if (std::abs(scale - 1) * std::max(widest, highest) < 1)
        scale = 1;
    QRectF page(0, 0, picture.size.width * scale / ratio_, picture.size.height * scale / ratio_);
    page.moveCenter(room.center());
    page = aligned(page);
    paintBorder(page);
    QImage image(reinterpret_cast<const uchar*>(picture.pixels.data()), picture.size.width,
                 picture.size.height, static_cast<qsizetype>(picture.size.width) * 4, QImage::Format_RGB32);
    painter_.setRenderHint(QPainter::SmoothPixmapTransform, scale != 1);
    if (scale == 1) {
        image.setDevicePixelRatio(ratio_);
        painter_.drawImage(page.topLeft(), image);
    } else {
        painter_.drawImage(page, image);
    }
    return page;
}

QRectF ThumbPainter::paintOutline(const QRectF& room) {
    const double width = std::min(room.width(), room.height() * UsualProportion);
    QRectF page(0, 0, width, width / UsualProportion);
    page.moveCenter(room.center());
    page = aligned(page);
    QColor paper = colour(QPalette::AlternateBase);
    if (paper == colour(QPalette::Base))
        paper = colour(QPalette::Window);
    paintBorder(page);
    painter_.fillRect(page, paper);
    return page;
}

/// A thin border and a soft shadow around the paper.
void ThumbPainter::paintBorder(const QRectF& page) {
    const double line = 1 / ratio_;
    const auto frame = [&](const QRectF& inside, double width, const QColor& shade) {
        const QRectF outside = inside.adjusted(-width, -width, width, width);
        painter_.fillRect(QRectF(outside.topLeft(), QSizeF(outside.width(), width)), shade);
        painter_.fillRect(QRectF(outside.left(), inside.bottom(), outside.width(), width), shade);
        painter_.fillRect(QRectF(outside.left(), inside.top(), width, inside.height()), shade);
        painter_.fillRect(QRectF(inside.right(), inside.top(), width, inside.height()), shade);
    };
    frame(page, line, colour(QPalette::Mid));
    const QRectF lowered = page.translated(0, line);
    frame(lowered.adjusted(-line, -line, line, line), 1, QColor(0, 0, 0, 36));
    frame(lowered.adjusted(-line - 1, -line - 1, line + 1, line + 1), 1, QColor(0, 0, 0, 18));
    frame(lowered.adjusted(-line - 2, -line - 2, line + 2, line + 2), 1, QColor(0, 0, 0, 8));
}

/// Three dots.
void ThumbPainter::paintWaiting(const QRectF& page) {
    const Smooth smooth(painter_);
    const double radius = std::max(1.5, page.width() / 40);
    painter_.setPen(Qt::NoPen);
    painter_.setBrush(colour(QPalette::PlaceholderText));
    for (const double place : {-3.0, 0.0, 3.0})
        painter_.drawEllipse(page.center() + QPointF(place * radius, 0), radius, radius);
}

/// A page torn across, its lower half fallen aside.
void ThumbPainter::paintBroken(const QRectF& page) {
    const Smooth smooth(painter_);
    constexpr std::array<double, 7> Tear = {0.0, -1.0, 0.6, -0.6, 1.0, -0.4, 0.4};
    const double step = page.width() / (Tear.size() - 1);
    const double depth = page.height() / 14;
    const double gap = page.height() / 22;
    QPainterPath torn;
    for (size_t i = 0; i < Tear.size(); ++i) {
        const QPointF place(page.left() + static_cast<double>(i) * step,
                            page.center().y() + Tear.at(i) * depth - gap);
        i == 0 ? torn.moveTo(place) : torn.lineTo(place);
    }
    QPainterPath lower = torn.translated(0, 2 * gap);
    lower.connectPath(torn.toReversed());
    lower.closeSubpath();
    painter_.fillPath(lower, colour(QPalette::Base));
    painter_.setBrush(Qt::NoBrush);
    painter_.setPen(QPen(colour(QPalette::Mid), 1));
    painter_.drawPath(torn);
    painter_.drawPath(torn.translated(0, 2 * gap));
    // A cross in the upper half, of the colour of what failed.
    const QColor failed =
        colour(QPalette::Base).lightness() > 127 ? QColor(0xB0, 0x2A, 0x2A) : QColor(0xF0, 0x7A, 0x70);
    const double arm = page.width() / 11;
    const QPointF middle(page.center().x(), page.top() + page.height() / 4);
    painter_.setPen(QPen(failed, std::max(1.5, page.width() / 36), Qt::SolidLine, Qt::RoundCap));
    painter_.drawLine(middle + QPointF(-arm, -arm), middle + QPointF(arm, arm));
    painter_.drawLine(middle + QPointF(-arm, arm), middle + QPointF(arm, -arm));
}

void ThumbPainter::paintNumber(int item, const QRect& cell) {
    const int height = ThumbGrid::NumberHeight;
    const QRect line(cell.left(), cell.bottom() + 1 - height - ThumbGrid::Margin / 2, cell.width(), height);
    const QString number = QString::number(item + 1);
    const bool current = item + 1 == thumbs_.currentPage();
    QFont font = view_.font();
    font.setBold(current);
    painter_.setFont(font);
    const int width = painter_.fontMetrics().horizontalAdvance(number) + 12;
    QRect pill(0, 0, width, std::min(height - 2, painter_.fontMetrics().height() + 2));
    pill.moveCenter(line.center());
    const bool selected = thumbs_.selection().isSelected(item);
    if (selected) {
        const Smooth smooth(painter_);
        painter_.setPen(Qt::NoPen);
        painter_.setBrush(colour(QPalette::Highlight));
        painter_.drawRoundedRect(pill, pill.height() / 2.0, pill.height() / 2.0);
    }
    painter_.setPen(colour(selected ? QPalette::HighlightedText : QPalette::Text));
    painter_.drawText(line, Qt::AlignCenter, number);
    if (view_.hasFocus() && item == thumbs_.selection().focus()) {
        QStyleOptionFocusRect option;
        option.initFrom(&view_);
        option.rect = cell.adjusted(1, 1, -1, -1);
        option.backgroundColor = colour(QPalette::Base);
        view_.style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter_, &view_);
    }
}

void ThumbPainter::paintBand() {
    const Rectangle band = thumbs_.band();
    QColor fill = colour(QPalette::Highlight);
    painter_.setPen(QPen(fill, 1));
    fill.setAlpha(SelectionAlpha / 2);
    painter_.setBrush(fill);
    painter_.drawRect(QRectF(band.left + 0.5, band.top + 0.5, band.width, band.height));
}

} // namespace pixmo::qt
