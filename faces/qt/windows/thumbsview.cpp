#include "faces/qt/windows/thumbsview.h"

#include "core/thumbs/thumbpainter.h"
#include "faces/qt/ports/texts.h"
#include "faces/qt/windows/colours.h"
#include "faces/qt/windows/thumbsaccessible.h"
#include "faces/qt/windows/virtualkeys.h"

#include <QAccessible>
#include <QApplication>
#include <QHelpEvent>
#include <QPainter>
#include <QScrollBar>
#include <QToolTip>
#include <utility>

namespace pixmo::qt {

namespace {

constexpr int BandScrollInterval = 30; ///< milliseconds
constexpr int NoticeMargin = 16;

} // namespace

ThumbsView::ThumbsView(QWidget* parent) : QAbstractScrollArea(parent) {
    ThumbsAccessible::install();
    setFocusPolicy(Qt::StrongFocus);
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setAccessibleName(tr("Thumbnails"));
    viewport()->setBackgroundRole(QPalette::Base);
    bandScroll_.setInterval(BandScrollInterval);
    connect(&bandScroll_, &QTimer::timeout, this, [this] { scrollWithBand(); });
}

void ThumbsView::setThumbs(const std::shared_ptr<dlgThumbs>& thumbs) {
    thumbs_ = thumbs;
    pressing_ = false;
    bandScroll_.stop();
}

QRect ThumbsView::cell(int item) const {
    const auto thumbs = thumbs_.lock();
    const Rectangle place = thumbs ? thumbs->grid().cell(item) : Rectangle();
    return {place.left, place.top, place.width, place.height};
}

void ThumbsView::resizeThumbs() {
    if (const auto thumbs = thumbs_.lock())
        thumbs->resized();
}

void ThumbsView::mirror() {
    const auto thumbs = thumbs_.lock();
    if (!thumbs || std::exchange(mirroring_, true))
        return;
    const ThumbGrid& grid = thumbs->grid();
    QScrollBar& bar = *verticalScrollBar();
    bar.setRange(0, grid.scrollMaximum());
    bar.setPageStep(grid.pageStep());
    bar.setSingleStep(grid.lineStep());
    bar.setValue(grid.scrollPosition());
    mirroring_ = false;
    viewport()->update();
    tellAccessibility(*thumbs);
}

void ThumbsView::tellAccessibility(const dlgThumbs& thumbs) {
    if (!QAccessible::isActive())
        return;
    const int focus = thumbs.selection().focus();
    if (std::exchange(toldFocus_, focus) != focus && focus >= 0 && hasFocus()) {
        QAccessibleEvent event(this, QAccessible::Focus);
        event.setChild(focus);
        QAccessible::updateAccessibility(&event);
    }
    const size_t selected = thumbs.selection().items().size();
    if (std::exchange(toldSelected_, selected) != selected) {
        QAccessibleEvent event(this, QAccessible::SelectionWithin);
        QAccessible::updateAccessibility(&event);
    }
}

void ThumbsView::scrollContentsBy(int, int) {
    const auto thumbs = thumbs_.lock();
    if (thumbs && !mirroring_)
        thumbs->scrollTo(verticalScrollBar()->value());
}

void ThumbsView::resizeEvent(QResizeEvent*) {
    resizeThumbs();
}

void ThumbsView::changeEvent(QEvent* event) {
    QAbstractScrollArea::changeEvent(event);
    viewport()->update();
}

void ThumbsView::paintEvent(QPaintEvent*) {
    QPainter painter(viewport());
    const auto thumbs = thumbs_.lock();
    if (!thumbs)
        return;
    // Moved to a screen of another resolution.
    if (std::exchange(ratio_, devicePixelRatioF()) != devicePixelRatioF())
        QMetaObject::invokeMethod(
            this, [this] { resizeThumbs(); }, Qt::QueuedConnection);
    const QString notice = toQt(thumbs->notice());
    if (!notice.isEmpty()) {
        painter.setPen(palette().color(QPalette::PlaceholderText));
        const int margin = NoticeMargin;
        painter.drawText(viewport()->rect().adjusted(margin, margin, -margin, -margin),
                         Qt::AlignCenter | Qt::TextWordWrap, notice);
        return;
    }
    paintThumbs(*thumbs, painter);
}

void ThumbsView::paintThumbs(dlgThumbs& thumbs, QPainter& painter) {
    const double ratio = devicePixelRatioF();
    const QSize size(qRound(viewport()->width() * ratio), qRound(viewport()->height() * ratio));
    if (image_.size() != size)
        image_ = QImage(size, QImage::Format_RGB32);
    if (image_.isNull())
        return;
    const auto fontOf = [this](bool bold) {
        QFont own = font();
        own.setBold(bold);
        return own;
    };
    const auto measure = [&](const std::string& text, bool bold) {
        const QFontMetrics metrics(fontOf(bold));
        return Size{qRound(metrics.horizontalAdvance(toQt(text)) * ratio), qRound(metrics.height() * ratio)};
    };
    const auto stride = static_cast<size_t>(image_.bytesPerLine()) / sizeof(uint32_t);
    ThumbPainter thumbPainter(
        thumbs, {reinterpret_cast<uint32_t*>(image_.bits()), image_.width(), image_.height(), stride},
        {toPalette(palette()), ratio, hasFocus()}, measure);
    const std::vector<TextRun> texts = thumbPainter.paint();
    image_.setDevicePixelRatio(ratio);
    painter.drawImage(QPoint(0, 0), image_);
    for (const TextRun& run : texts) {
        painter.setFont(fontOf(run.bold));
        painter.setPen(QColor::fromRgb(run.rgb));
        painter.drawText(QRectF(run.place.left / ratio, run.place.top / ratio, run.place.width / ratio,
                                run.place.height / ratio),
                         Qt::AlignCenter, toQt(run.text));
    }
}

void ThumbsView::focusInEvent(QFocusEvent* event) {
    QAbstractScrollArea::focusInEvent(event);
    viewport()->update();
}

void ThumbsView::focusOutEvent(QFocusEvent* event) {
    QAbstractScrollArea::focusOutEvent(event);
    viewport()->update();
}

void ThumbsView::keyPressEvent(QKeyEvent* event) {
    const auto thumbs = thumbs_.lock();
    const int16_t keyCode = virtualKey(*event);
    if (!thumbs || keyCode == 0 || !thumbs->keyDown(keyCode, shiftState(event->modifiers())))
        event->ignore();
}

void ThumbsView::mousePressEvent(QMouseEvent* event) {
    const auto thumbs = thumbs_.lock();
    const QPoint place = event->position().toPoint();
    if (!thumbs || (event->button() != Qt::LeftButton && event->button() != Qt::RightButton))
        return;
    const int item = thumbs->grid().itemAt(place.x(), place.y());
    if (event->button() == Qt::RightButton) {
        if (item >= 0 && !thumbs->selection().isSelected(item))
            thumbs->click(place.x(), place.y(), 0);
        return;
    }
    pressing_ = true;
    pressed_ = pointer_ = place;
    pressedWith_ = event->modifiers();
    if (item >= 0)
        thumbs->click(place.x(), place.y(), shiftState(pressedWith_));
    else
        startBand(*thumbs, place);
}

void ThumbsView::startBand(dlgThumbs& thumbs, QPoint place) {
    thumbs.bandStart(place.x(), place.y(), shiftState(pressedWith_));
    bandScroll_.start();
}

void ThumbsView::mouseMoveEvent(QMouseEvent* event) {
    const auto thumbs = thumbs_.lock();
    if (!thumbs || !pressing_)
        return;
    pointer_ = event->position().toPoint();
    if (!thumbs->isBandShown() &&
        (pointer_ - pressed_).manhattanLength() >= QApplication::startDragDistance())
        startBand(*thumbs, pressed_);
    thumbs->bandMove(pointer_.x(), pointer_.y());
}

/// While the band is drawn beyond the edge.
void ThumbsView::scrollWithBand() {
    const auto thumbs = thumbs_.lock();
    if (!thumbs || !thumbs->isBandShown())
        return;
    const int beyond = pointer_.y() < 0 ? pointer_.y() : qMax(0, pointer_.y() - viewport()->height());
    if (beyond == 0)
        return;
    thumbs->scrollTo(thumbs->grid().scrollPosition() + beyond / 2);
    thumbs->bandMove(pointer_.x(), pointer_.y());
}

void ThumbsView::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton)
        return;
    pressing_ = false;
    bandScroll_.stop();
    const auto thumbs = thumbs_.lock();
    if (thumbs && thumbs->isBandShown())
        thumbs->bandEnd();
}

void ThumbsView::mouseDoubleClickEvent(QMouseEvent* event) {
    const QPoint place = event->position().toPoint();
    const auto thumbs = thumbs_.lock();
    if (thumbs && event->button() == Qt::LeftButton)
        thumbs->doubleClick(place.x(), place.y());
}

void ThumbsView::wheelEvent(QWheelEvent* event) {
    const auto thumbs = thumbs_.lock();
    if (!thumbs || !event->modifiers().testFlag(Qt::ControlModifier)) {
        QAbstractScrollArea::wheelEvent(event);
        return;
    }
    wheel_ += event->angleDelta().y();
    for (; wheel_ >= QWheelEvent::DefaultDeltasPerStep; wheel_ -= QWheelEvent::DefaultDeltasPerStep)
        thumbs->larger();
    for (; wheel_ <= -QWheelEvent::DefaultDeltasPerStep; wheel_ += QWheelEvent::DefaultDeltasPerStep)
        thumbs->smaller();
    event->accept();
}

void ThumbsView::contextMenuEvent(QContextMenuEvent* event) {
    const auto thumbs = thumbs_.lock();
    QPoint place = event->globalPos();
    if (thumbs && event->reason() == QContextMenuEvent::Keyboard && thumbs->selection().focus() >= 0)
        place = viewport()->mapToGlobal(cell(thumbs->selection().focus()).center());
    Q_EMIT menuRequested(place);
}

bool ThumbsView::viewportEvent(QEvent* event) {
    if (event->type() != QEvent::ToolTip)
        return QAbstractScrollArea::viewportEvent(event);
    const auto* const help = static_cast<QHelpEvent*>(event);
    const auto thumbs = thumbs_.lock();
    const int item = thumbs ? thumbs->grid().itemAt(help->pos().x(), help->pos().y()) : -1;
    if (item < 0)
        QToolTip::hideText();
    else
        QToolTip::showText(help->globalPos(), linesToQt(thumbs->tip(static_cast<int16_t>(item + 1))),
                           viewport(), cell(item));
    return true;
}

} // namespace pixmo::qt
