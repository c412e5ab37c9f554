#include "faces/com/windows/colours.h"

namespace pixmo::com {

COLORREF toColorRef(Colour colour) {
    if (colour.isSystem())
        return GetSysColor(static_cast<int>(colour.value & 0xFFU));
    return colour.value & 0xFFFFFFU;
}

Palette systemPalette() {
    const auto rgb = [](int index) { return rgbOf(GetSysColor(index)); };
    return {rgb(COLOR_WINDOW),        rgb(COLOR_WINDOWTEXT), rgb(COLOR_GRAYTEXT), rgb(COLOR_HIGHLIGHT),
            rgb(COLOR_HIGHLIGHTTEXT), rgb(COLOR_BTNFACE),    rgb(COLOR_BTNTEXT),  rgb(COLOR_BTNSHADOW)};
}

} // namespace pixmo::com
