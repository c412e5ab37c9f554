#include "core/base/ansi.h"
#include "faces/qt/ports/texts.h"
#include "faces/qt/windows/pageview.h"
#include "faces/qt/windows/popupmenu.h"
#include "faces/qt/windows/virtualkeys.h"

#include <QContextMenuEvent>
#include <QMouseEvent>
#include <QWheelEvent>

// Keys, mouse and wheel over the page, all of which the control judges. A slot of the host may end the view
// in any of them.
namespace pixmo::qt {

void PageView::keyPressEvent(QKeyEvent* event) {
    event->ignore();
    const auto control = control_.lock();
    if (!control)
        return;
    const int16_t pressed = virtualKey(*event);
    int16_t keyCode = pressed;
    int16_t shift = shiftState(event->modifiers());
    const std::string text = event->text().toStdString();
    // What means nothing to the control reaches the host's window too.
    if (pressed != 0)
        event->setAccepted(control->UserControl_KeyDown(keyCode, shift));
    // A host that takes the key away takes its character too.
    if (text.empty() || (pressed != 0 && keyCode == 0))
        return;
    int16_t keyAscii = ansiCode(text);
    control->UserControl_KeyPress(keyAscii);
}

void PageView::keyReleaseEvent(QKeyEvent* event) {
    event->ignore();
    const auto control = control_.lock();
    int16_t keyCode = virtualKey(*event);
    int16_t shift = shiftState(event->modifiers());
    if (control && keyCode != 0 && !event->isAutoRepeat())
        control->UserControl_KeyUp(keyCode, shift);
}

void PageView::mousePressEvent(QMouseEvent* event) {
    const QPointF point = devicePoint(event->position());
    if (const auto control = control_.lock())
        control->mouse().lvrImage_MouseDown(buttonCode(event->button()), point.x(), point.y());
}

void PageView::mouseMoveEvent(QMouseEvent* event) {
    const QPointF point = devicePoint(event->position());
    if (const auto control = control_.lock())
        control->mouse().lvrImage_MouseMove(point.x(), point.y());
}

void PageView::mouseReleaseEvent(QMouseEvent* event) {
    const QPointF point = devicePoint(event->position());
    if (const auto control = control_.lock())
        control->mouse().release(buttonCode(event->button()), point.x(), point.y());
}

void PageView::mouseDoubleClickEvent(QMouseEvent*) {
    if (const auto control = control_.lock())
        control->UserControl_DblClick();
}

void PageView::wheelEvent(QWheelEvent* event) {
    const auto control = control_.lock();
    if (!control)
        return;
    const QPointF point = devicePoint(event->position());
    const QPointF pixels = devicePoint(event->pixelDelta());
    const int16_t shift = shiftState(event->modifiers());
    if (!pixels.isNull() && shift == 0)
        control->mouse().scrollPixels(-pixels.x(), -pixels.y());
    else
        control->mouse().lvrImage_MouseWheel(-notches(event->angleDelta().x()),
                                             notches(event->angleDelta().y()), shift, point.x(), point.y());
    event->accept();
}

bool PageView::viewportEvent(QEvent* event) {
    if (event->type() != QEvent::NativeGesture)
        return QAbstractScrollArea::viewportEvent(event);
    const auto control = control_.lock();
    const auto& gesture = static_cast<const QNativeGestureEvent&>(*event);
    if (!control || gesture.gestureType() != Qt::ZoomNativeGesture)
        return false;
    const QPointF point = devicePoint(gesture.position());
    control->mouse().zoomByGesture(1 + gesture.value(), point.x(), point.y());
    return true;
}

void PageView::contextMenuEvent(QContextMenuEvent* event) {
    if (const auto control = control_.lock())
        popUp(control->lvrImage_RightClick(), event->globalPos(), this,
              [control](const std::string& key) { control->runCommand(key); });
}

} // namespace pixmo::qt
