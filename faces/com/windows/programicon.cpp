#include "faces/com/windows/programicon.h"

#include "core/drawing/programpicture.h"
#include "faces/com/base/pixelbuffer.h"
#include "faces/com/windows/dpi.h"

#include <algorithm>
#include <cstdint>
#include <vector>

namespace pixmo::com {

namespace {

/// Icons hold their colours as they are, not multiplied by alpha.
uint32_t straight(uint32_t pixel) {
    const uint32_t alpha = pixel >> 24U;
    uint32_t result = alpha << 24U;
    for (uint32_t shift = 0; alpha > 0 && shift < 24; shift += 8)
        result |= std::min((pixel >> shift & 0xFFU) * 255 / alpha, uint32_t{255}) << shift;
    return result;
}

} // namespace

IconHandle makeProgramIcon(int size) {
    const BITMAPINFO info = describePixels({size, size});
    void* bits = nullptr;
    const BitmapHandle colours(CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0));
    if (!colours)
        return nullptr;
    const std::vector<uint32_t> picture = programPicture(size);
    std::transform(picture.begin(), picture.end(), static_cast<uint32_t*>(bits), straight);
    // Rows of the mask end on 16 bits; with alpha it says nothing.
    const std::vector<uint8_t> none(static_cast<size_t>((size + 15) / 16 * 2) * static_cast<size_t>(size));
    const BitmapHandle mask(CreateBitmap(size, size, 1, 1, none.data()));
    ICONINFO icon{};
    icon.fIcon = TRUE;
    icon.hbmColor = colours.get();
    icon.hbmMask = mask.get();
    return IconHandle(CreateIconIndirect(&icon));
}

void WindowIcons::giveTo(HWND window) {
    const int dpi = dpiOf(window);
    small_ = makeProgramIcon(systemMetric(SM_CXSMICON, dpi));
    large_ = makeProgramIcon(systemMetric(SM_CXICON, dpi));
    SendMessageW(window, WM_SETICON, ICON_SMALL, reinterpret_cast<LPARAM>(small_.get()));
    SendMessageW(window, WM_SETICON, ICON_BIG, reinterpret_cast<LPARAM>(large_.get()));
}

} // namespace pixmo::com
