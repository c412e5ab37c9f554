#pragma once

#include <QKeyEvent>
#include <QWheelEvent>
#include <cstdint>

namespace pixmo::qt {

/// The virtual-key code of a key press, 0 when there is none.
int16_t virtualKey(const QKeyEvent& event);

/// 1 Shift, 2 Ctrl, 4 Alt, summed.
int16_t shiftState(Qt::KeyboardModifiers modifiers);

/// One of mouse_button, 0 for others.
int32_t buttonCode(Qt::MouseButton button);

/// How many notches a wheel has turned, which may be parts of one; the angle is in eighths of a degree.
inline double notches(int angleDelta) {
    return angleDelta / double{QWheelEvent::DefaultDeltasPerStep};
}

} // namespace pixmo::qt
