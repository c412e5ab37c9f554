#pragma once

#include "core/platform/propertyvalue.h"
#include "faces/com/base/gdi.h"

#include <string>

namespace pixmo::com {

/// The font of that description; without a name the one of the system's messages.
FontHandle makeFont(const Font& font, int dpi);
/// Of equally wide characters.
FontHandle makeFixedFont(int dpi);
/// The same font, bold, so many times as large.
FontHandle makeBold(HFONT font, double size = 1);

/// The system's message font at its desktop's resolution.
LOGFONTW messageFont();

/// Of one line.
SIZE textSize(HFONT font, const std::wstring& text);

} // namespace pixmo::com
