#include "faces/com/printing/sheetview.h"

#include "faces/com/base/widetext.h"
#include "faces/com/printing/previewdevice.h"

#include <algorithm>

namespace pixmo::com {

void SheetView::resized() {
    RECT room{};
    GetClientRect(control_, &room);
    resized_(this, {std::max<LONG>(1, room.right), std::max<LONG>(1, room.bottom)});
    InvalidateRect(control_, nullptr, TRUE);
}

std::unique_ptr<pixmo::PrinterDevice> SheetView::newSheet(const pixmo::PrinterDevice& printer, Size size) {
    drawn_ = std::make_shared<PixelBuffer>();
    if (!drawn_->resize(size))
        return nullptr;
    return std::make_unique<PreviewDevice>(printer, drawn_);
}

void SheetView::showSheet() {
    sheet_ = drawn_;
    message_.clear();
    InvalidateRect(control_, nullptr, FALSE);
}

void SheetView::say(const std::string& text) {
    message_ = toWide(text);
    InvalidateRect(control_, nullptr, FALSE);
}

void SheetView::paint(const DRAWITEMSTRUCT& item, HFONT font) const {
    const bool isWritten = !message_.empty() || !sheet_;
    FillRect(item.hDC, &item.rcItem, GetSysColorBrush(isWritten ? COLOR_BTNFACE : COLOR_APPWORKSPACE));
    if (isWritten) {
        RECT place = item.rcItem;
        SetBkMode(item.hDC, TRANSPARENT);
        SetTextColor(item.hDC, GetSysColor(COLOR_BTNTEXT));
        const Selected selected(item.hDC, font);
        DrawTextW(item.hDC, message_.c_str(), -1, &place, DT_CENTER | DT_VCENTER | DT_SINGLELINE);
        return;
    }
    const PixelSurface pixels = sheet_->surface();
    const int left = (item.rcItem.left + item.rcItem.right - pixels.width) / 2;
    const int top = (item.rcItem.top + item.rcItem.bottom - pixels.height) / 2;
    BitBlt(item.hDC, left, top, pixels.width, pixels.height, sheet_->dc(), 0, 0, SRCCOPY);
}

} // namespace pixmo::com
