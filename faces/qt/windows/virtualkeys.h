#pragma once

#include <QKeyEvent>
#include <cstdint>

namespace pixmo::qt {

/// The virtual-key code of a key press, 0 when there is none.
int16_t virtualKey(const QKeyEvent& event);

/// 1 Shift, 2 Ctrl, 4 Alt, summed.
int16_t shiftState(Qt::KeyboardModifiers modifiers);

} // namespace pixmo::qt
