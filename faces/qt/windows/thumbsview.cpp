#include "faces/qt/windows/thumbsview.h"

#include "core/base/partnames.h"
#include "core/thumbs/thumbpainter.h"
#include "faces/qt/ports/texts.h"
#include "faces/qt/windows/accessible.h"
#include "faces/qt/windows/colours.h"
#include "faces/qt/windows/virtualkeys.h"

#include <QHelpEvent>
#include <QPainter>
#include <QScrollBar>
#include <QToolTip>
#include <utility>

namespace pixmo::qt {

ThumbsView::ThumbsView(QWidget* parent) : ScrolledView(parent) {
    ThumbsAccessible::install();
    setAccessibleName(toQt(part_name::Thumbnails));
}

void ThumbsView::resizeThumbs() {
    if (const auto thumbs = thumbs_.lock())
        thumbs->resized();
}

void ThumbsView::mirror() {
    const auto thumbs = thumbs_.lock();
    if (!thumbs || std::exchange(mirroring_, true))
        return;
    ScrolledView::mirror(*verticalScrollBar(), thumbs->grid().scrollBar());
    mirroring_ = false;
    viewport()->update();
    tellAccessibility(*thumbs);
}

void ThumbsView::tellAccessibility(dlgThumbs& thumbs) {
    if (!QAccessible::isActive())
        return;
    const dlgThumbs::Told changes = thumbs.takeChanges();
    if (changes.focus && hasFocus()) {
        QAccessibleEvent event(this, QAccessible::Focus);
        event.setChild(thumbs.selection().focus());
        QAccessible::updateAccessibility(&event);
    }
    if (changes.selection) {
        QAccessibleEvent event(this, QAccessible::SelectionWithin);
        QAccessible::updateAccessibility(&event);
    }
}

void ThumbsView::scrolled() {
    if (const auto thumbs = thumbs_.lock())
        thumbs->scrollTo(verticalScrollBar()->value());
}

void ThumbsView::resizeEvent(QResizeEvent*) {
    resizeThumbs();
}

void ThumbsView::paintEvent(QPaintEvent*) {
    const auto thumbs = thumbs_.lock();
    if (!thumbs) {
        QPainter(viewport()).fillRect(viewport()->rect(), palette().color(QPalette::Base));
        return;
    }
    // Moved to a screen of another resolution.
    if (std::exchange(ratio_, devicePixelRatioF()) != devicePixelRatioF())
        QMetaObject::invokeMethod(
            this, [this] { resizeThumbs(); }, Qt::QueuedConnection);
    paintBy([&](const PixelSurface& surface, const TextMeasure& measure) {
        return ThumbPainter(*thumbs, surface, {toPalette(palette()), devicePixelRatioF(), hasFocus()},
                            measure)
            .paint();
    });
}

void ThumbsView::keyPressEvent(QKeyEvent* event) {
    const auto thumbs = thumbs_.lock();
    const int16_t keyCode = virtualKey(*event);
    if (!thumbs || keyCode == 0 || !thumbs->keyDown(keyCode, shiftState(event->modifiers())))
        event->ignore();
}

void ThumbsView::mousePressEvent(QMouseEvent* event) {
    if (const auto thumbs = thumbs_.lock())
        thumbs->mouse().press(buttonCode(event->button()), event->position().x(), event->position().y(),
                              shiftState(event->modifiers()));
}

void ThumbsView::mouseMoveEvent(QMouseEvent* event) {
    if (const auto thumbs = thumbs_.lock())
        thumbs->mouse().move(event->position().x(), event->position().y());
}

void ThumbsView::mouseReleaseEvent(QMouseEvent* event) {
    const auto thumbs = thumbs_.lock();
    if (thumbs && event->button() == Qt::LeftButton)
        thumbs->mouse().release();
}

void ThumbsView::mouseDoubleClickEvent(QMouseEvent* event) {
    if (const auto thumbs = thumbs_.lock())
        thumbs->mouse().doubleClick(buttonCode(event->button()), event->position().x(),
                                    event->position().y());
}

void ThumbsView::wheelEvent(QWheelEvent* event) {
    if (const auto thumbs = thumbs_.lock())
        thumbs->mouse().wheel(notches(event->angleDelta().y()), shiftState(event->modifiers()));
    event->accept();
}

void ThumbsView::contextMenuEvent(QContextMenuEvent* event) {
    const auto thumbs = thumbs_.lock();
    QPoint place = event->globalPos();
    if (thumbs && event->reason() == QContextMenuEvent::Keyboard)
        place = viewport()->mapToGlobal(toQt(thumbs->menuPlace()).center());
    Q_EMIT menuRequested(place);
}

bool ThumbsView::viewportEvent(QEvent* event) {
    if (event->type() != QEvent::ToolTip)
        return QAbstractScrollArea::viewportEvent(event);
    const auto* const help = static_cast<QHelpEvent*>(event);
    const auto thumbs = thumbs_.lock();
    const int page = thumbs ? thumbs->pageAt(help->x(), help->y()) : 0;
    // The tip goes when the pointer leaves the page's cell.
    if (page == 0)
        QToolTip::hideText();
    else
        QToolTip::showText(help->globalPos(), linesToQt(thumbs->tipAt(help->x(), help->y())), viewport(),
                           toQt(thumbs->grid().cell(page - 1)));
    return true;
}

} // namespace pixmo::qt
