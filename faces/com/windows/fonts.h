#pragma once

#include "core/platform/propertyvalue.h"
#include "faces/com/base/gdi.h"

#include <string>

namespace pixmo::com {

/// The font of that description; without a name the one of the system's messages.
FontHandle makeFont(const Font& font, int dpi);
/// A font whose characters are equally wide, in the size of the user's messages.
FontHandle makeFixedFont(int dpi);
/// The same font, bold, so many times as large.
FontHandle makeBold(HFONT font, double size = 1);

/// The system's message font at its desktop's resolution.
LOGFONTW messageFont();

/// The size of the text in one line, in device pixels.
SIZE textSize(HFONT font, const std::wstring& text);

} // namespace pixmo::com
