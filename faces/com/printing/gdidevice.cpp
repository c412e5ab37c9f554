#include "faces/com/printing/gdidevice.h"

#include "faces/com/base/widetext.h"

#include <algorithm>

namespace pixmo::com {

int32_t GdiDevice::CreateFontIndirect(const LogFont& font) {
    LOGFONTW made{};
    made.lfHeight = font.lfHeight;
    made.lfWidth = font.lfWidth;
    made.lfEscapement = font.lfEscapement;
    made.lfOrientation = font.lfOrientation;
    made.lfWeight = font.lfWeight;
    made.lfItalic = font.lfItalic;
    made.lfUnderline = font.lfUnderline;
    made.lfStrikeOut = font.lfStrikeOut;
    made.lfCharSet = DEFAULT_CHARSET;
    const std::wstring name = toWide(font.lfFaceName);
    const size_t length = std::min<size_t>(name.size(), LF_FACESIZE - 1);
    std::copy_n(name.begin(), length, made.lfFaceName);
    FontHandle handle(CreateFontIndirectW(&made));
    if (!handle)
        return 0;
    fonts_[++lastFont_] = std::move(handle);
    return lastFont_;
}

void GdiDevice::SelectObject(int32_t font) {
    if (fonts_.contains(font))
        selected_ = font;
}

void GdiDevice::DeleteObject(int32_t font) {
    fonts_.erase(font);
}

HFONT GdiDevice::selected() const {
    const auto found = fonts_.find(selected_);
    return found == fonts_.end() ? nullptr : found->second.get();
}

Size GdiDevice::GetTextExtentPoint32(const std::string& text) const {
    const HDC dc = measuringDc();
    const Selected font(dc, selected() ? selected() : GetStockObject(SYSTEM_FONT));
    const std::wstring wide = toWide(text);
    SIZE size{};
    GetTextExtentPoint32W(dc, wide.c_str(), static_cast<int>(wide.size()), &size);
    return {size.cx, size.cy};
}

} // namespace pixmo::com
