#include "faces/com/printing/previewdialog.h"

#include "faces/com/base/widetext.h"
#include "faces/com/printing/previewdevice.h"
#include "faces/com/windows/dpi.h"

#include <algorithm>
#include <memory>
#include <utility>

namespace pixmo::com {

namespace {

enum Id : WORD { Previous = 100, Next, SheetText };

constexpr short FirstWidth = 330;
constexpr short FirstHeight = 380;
constexpr int LeastLength = 200; ///< of the window, device-independent pixels

constexpr UINT_PTR DrawTimer = 1;
constexpr UINT_PTR LoadingTimer = 2;
constexpr UINT ResizeMilliseconds = 50;
constexpr UINT PatienceMilliseconds = 200;

} // namespace

PreviewDialog::PreviewDialog(PrintPreview& preview)
    : ModalDialog(toWide(PrintPreview::Caption()), FirstWidth, FirstHeight, WS_THICKFRAME | WS_MAXIMIZEBOX),
      preview_(preview) {
    const DialogTemplate::Place somewhere = {0, 0, 10, 10};
    layout().addButton(L"&Previous", Previous, somewhere);
    layout().addButton(L"&Next", Next, somewhere);
    layout().addLabel({}, SheetText, somewhere, SS_CENTER | SS_CENTERIMAGE);
    layout().addButton(L"&Close", IDCANCEL, somewhere, true);
}

void PreviewDialog::onInit() {
    RECT client{};
    GetClientRect(handle(), &client);
    onResize({client.right, client.bottom});
    turnTo(0);
}

void PreviewDialog::onClose() {
    KillTimer(handle(), DrawTimer);
    KillTimer(handle(), LoadingTimer);
    preview_.close();
}

/// Who closes the window while a page is being fetched waits for it no longer.
bool PreviewDialog::onCommand(WORD id, WORD code) {
    if (code != BN_CLICKED)
        return false;
    if (id == Previous || id == Next) {
        turnTo(id == Previous ? sheet_ - 1 : sheet_ + 1);
        return true;
    }
    if (id == IDCANCEL)
        preview_.close();
    return ModalDialog::onCommand(id, code);
}

bool PreviewDialog::onKey(const MSG& message) {
    switch (message.wParam) {
    case VK_NEXT:
        turnTo(sheet_ + 1);
        return true;
    case VK_PRIOR:
        turnTo(sheet_ - 1);
        return true;
    case VK_HOME:
        turnTo(0);
        return true;
    case VK_END:
        turnTo(preview_.sheetCount() - 1);
        return true;
    default:
        return false;
    }
}

void PreviewDialog::turnTo(int32_t sheet) {
    sheet_ = preview_.nearestSheet(sheet);
    // A disabled button keeps no focus.
    EnableWindow(item(Previous), sheet_ > 0);
    EnableWindow(item(Next), sheet_ + 1 < preview_.sheetCount());
    if (!IsWindowEnabled(GetFocus()))
        SetFocus(item(IDCANCEL));
    setText(SheetText, toWide(preview_.sheetText(sheet_)));
    SetTimer(handle(), DrawTimer, 0, nullptr);
    SetTimer(handle(), LoadingTimer, PatienceMilliseconds, nullptr);
}

void PreviewDialog::onResize(SIZE size) {
    const RECT unit = pixels({7, 14, 50, 4});
    const LONG top = size.cy - unit.left - unit.top;
    const LONG button = unit.right - unit.left;
    const auto put = [&](WORD id, LONG left, LONG right) {
        MoveWindow(item(id), left, top, std::max<LONG>(0, right - left), unit.top, TRUE);
    };
    const LONG margin = unit.left;
    const LONG right = size.cx - margin;
    put(Previous, margin, margin + button);
    put(Next, 2 * margin + button, 2 * margin + 2 * button);
    put(SheetText, 3 * margin + 2 * button, right - button - margin);
    put(IDCANCEL, right - button, right);
    InvalidateRect(handle(), nullptr, TRUE);
    SetTimer(handle(), DrawTimer, ResizeMilliseconds, nullptr);
}

RECT PreviewDialog::sheetRoom() const {
    const RECT unit = pixels({7, 14, 0, 0});
    RECT client{};
    GetClientRect(handle(), &client);
    return {unit.left, unit.left, std::max(unit.left + 1, client.right - unit.left),
            std::max(unit.left + 1, client.bottom - 2 * unit.left - unit.top)};
}

std::optional<INT_PTR> PreviewDialog::onMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_TIMER:
        onTimer(wParam);
        return TRUE;
    case WM_PAINT:
        paint();
        return TRUE;
    case WM_GETMINMAXINFO: {
        const int least = scaled(LeastLength, dpi());
        reinterpret_cast<MINMAXINFO*>(lParam)->ptMinTrackSize = {2 * least, 2 * least};
        return TRUE;
    }
    default:
        return std::nullopt;
    }
}

void PreviewDialog::onTimer(UINT_PTR timer) {
    KillTimer(handle(), timer);
    if (timer == DrawTimer)
        drawSheet();
    else
        say(L"Loading\u2026");
}

void PreviewDialog::say(const std::wstring& text) {
    message_ = text;
    InvalidateRect(handle(), nullptr, FALSE);
}

// The page may have to be fetched first, while the window goes on living and may turn to another sheet.
void PreviewDialog::drawSheet() {
    const RECT room = sheetRoom();
    const int32_t asked = sheet_;
    int32_t status = -1;
    auto drawn = std::make_unique<PixelBuffer>();
    if (const pixmo::PrinterDevice* const printer = preview_.printer()) {
        const Size size =
            PreviewDevice::sheetInside(*printer, {room.right - room.left, room.bottom - room.top});
        if (drawn->resize(size))
            status = preview_.draw(asked, std::make_unique<PreviewDevice>(*printer, *drawn));
    }
    if (asked != sheet_)
        return;
    KillTimer(handle(), LoadingTimer);
    pixels_ = status == 0 ? std::move(drawn) : nullptr;
    say(pixels_ ? L"" : L"This sheet cannot be shown.");
}

void PreviewDialog::paint() const {
    const Painting painting(handle());
    const RECT room = sheetRoom();
    const bool isWritten = !message_.empty() || !pixels_;
    FillRect(painting.dc(), &room, GetSysColorBrush(isWritten ? COLOR_BTNFACE : COLOR_APPWORKSPACE));
    if (isWritten) {
        RECT place = room;
        SetBkMode(painting.dc(), TRANSPARENT);
        SetTextColor(painting.dc(), GetSysColor(COLOR_BTNTEXT));
        const Selected font(painting.dc(), reinterpret_cast<HFONT>(SendMessageW(handle(), WM_GETFONT, 0, 0)));
        DrawTextW(painting.dc(), message_.c_str(), -1, &place, DT_CENTER | DT_VCENTER | DT_SINGLELINE);
        return;
    }
    const PixelSurface sheet = pixels_->surface();
    const int left = (room.left + room.right - sheet.width) / 2;
    const int top = (room.top + room.bottom - sheet.height) / 2;
    BitBlt(painting.dc(), left, top, sheet.width, sheet.height, pixels_->dc(), 0, 0, SRCCOPY);
}

} // namespace pixmo::com
