#pragma once

#include "core/platform/propertyvalue.h"

#include <QColor>
#include <QPalette>

namespace pixmo::qt {

inline constexpr Colour ButtonText{0x80000012};

/// A system colour becomes the palette's colour of the same use; an unknown one the window colour.
QColor toQColor(Colour colour, const QPalette& palette);

} // namespace pixmo::qt
