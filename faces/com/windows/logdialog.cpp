#include "faces/com/windows/logdialog.h"

#include "core/base/text.h"
#include "core/diag/settings.h"
#include "core/dialogs/dlglog.h"
#include "faces/com/base/widetext.h"
#include "faces/com/windows/cliptext.h"
#include "faces/com/windows/dpi.h"
#include "faces/com/windows/fonts.h"
#include "faces/com/windows/keys.h"

#include <algorithm>

namespace pixmo::com {

namespace {

constexpr short Width = 300;
constexpr short Height = 180;
constexpr int LeastLength = 200; ///< of the window, device-independent pixels
constexpr int MostLength = 10'000;

int keptLength(const SettingsStore& settings, const setting::Setting& which) {
    const std::string kept = settings.GetSetting(which.section, which.key, which.defaultValue);
    return std::clamp(static_cast<int>(std::clamp(leadingNumber(kept), 0.0, 1e5)), LeastLength, MostLength);
}

std::wstring folded(std::wstring text) {
    CharLowerBuffW(text.data(), static_cast<DWORD>(text.size()));
    return text;
}

} // namespace

LogDialog::LogDialog(dlgLog& dialog, SettingsStore& settings)
    : ModalDialog(L"Log", Width, Height, WS_THICKFRAME | WS_MAXIMIZEBOX), dialog_(dialog),
      settings_(settings) {
    const DialogTemplate::Place somewhere = {0, 0, 10, 10};
    const std::wstring path = dialog.path().wstring();
    layout().addLabel(path.empty() ? L"No log file" : path, Path, somewhere,
                      SS_NOPREFIX | SS_PATHELLIPSIS | SS_CENTERIMAGE);
    layout().addLabel(L"&Find:", FindLabel, somewhere, SS_CENTERIMAGE);
    layout().addEdit(Search, somewhere, ES_AUTOHSCROLL);
    layout().addLabel({}, Found, somewhere, SS_CENTERIMAGE);
    layout().addButton(L"&Next", Next, somewhere, true);
    layout().addButton(L"&Previous", Previous, somewhere);
    layout().addEdit(Text, somewhere,
                     ES_MULTILINE | ES_READONLY | ES_NOHIDESEL | ES_AUTOVSCROLL | ES_AUTOHSCROLL |
                         WS_VSCROLL | WS_HSCROLL);
    layout().addButton(L"&Copy", Copy, somewhere);
    layout().addButton(L"&Refresh", Refresh, somewhere);
    layout().addButton(L"Close", IDCANCEL, somewhere);
}

void LogDialog::onInit() {
    font_ = makeFixedFont(dpi());
    setFont(Text, font_.get());
    SendMessageW(item(Text), EM_SETLIMITTEXT, 0, 0);
    restoreSize();
    refresh();
    SetFocus(item(Search));
}

void LogDialog::restoreSize() {
    SetWindowPos(handle(), nullptr, 0, 0, scaled(keptLength(settings_, setting::LogWidth), dpi()),
                 scaled(keptLength(settings_, setting::LogHeight), dpi()), SWP_NOMOVE | SWP_NOZORDER);
}

void LogDialog::onClose() {
    RECT place{};
    GetWindowRect(handle(), &place);
    const auto keep = [this](const setting::Setting& which, LONG length) {
        settings_.SaveSetting(which.section, which.key, std::to_string(MulDiv(length, UsualDpi, dpi())));
    };
    if (IsZoomed(handle()))
        return;
    keep(setting::LogWidth, place.right - place.left);
    keep(setting::LogHeight, place.bottom - place.top);
}

/// The text takes what room there is.
void LogDialog::onResize(SIZE size) {
    const RECT unit = pixels({7, 14, 50, 4});
    const LONG margin = unit.left;
    const LONG row = unit.top;
    const LONG button = unit.right - unit.left;
    const LONG gap = unit.bottom - unit.top;
    LONG top = margin;
    const auto put = [&](WORD id, LONG left, LONG right, LONG height) {
        MoveWindow(item(id), left, top, std::max<LONG>(0, right - left), height, TRUE);
    };
    const LONG right = size.cx - margin;
    put(Path, margin, right, row);
    top += row + gap;
    put(FindLabel, margin, margin + button / 2, row);
    put(Search, margin + button / 2, right - 3 * button - 3 * gap, row);
    put(Found, right - 3 * button - 2 * gap, right - 2 * button - 2 * gap, row);
    put(Next, right - 2 * button - gap, right - button - gap, row);
    put(Previous, right - button, right, row);
    top += row + gap;
    put(Text, margin, right, std::max<LONG>(row, size.cy - margin - row - gap - top));
    top = std::max(top + row, size.cy - margin - row);
    put(Copy, margin, margin + button, row);
    put(Refresh, margin + button + gap, margin + 2 * button + gap, row);
    put(IDCANCEL, right - button, right, row);
    InvalidateRect(handle(), nullptr, TRUE);
}

std::optional<INT_PTR> LogDialog::onMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_GETMINMAXINFO) {
        const int least = scaled(LeastLength, dpi());
        reinterpret_cast<MINMAXINFO*>(lParam)->ptMinTrackSize = {2 * least, least};
        return TRUE;
    }
    if (message != WM_CTLCOLORSTATIC || reinterpret_cast<HWND>(lParam) != item(Text))
        return std::nullopt;
    SetTextColor(reinterpret_cast<HDC>(wParam), GetSysColor(COLOR_WINDOWTEXT));
    SetBkColor(reinterpret_cast<HDC>(wParam), GetSysColor(COLOR_WINDOW));
    return reinterpret_cast<INT_PTR>(GetSysColorBrush(COLOR_WINDOW));
}

bool LogDialog::onCommand(WORD id, WORD code) {
    switch (id) {
    case Next:
    case Previous:
        find(id == Previous);
        return true;
    case Copy:
        copy();
        return true;
    case Refresh:
        refresh();
        return true;
    default:
        return id == IDOK || ModalDialog::onCommand(id, code);
    }
}

bool LogDialog::onKey(const MSG& message) {
    if (message.wParam == 'F' && shiftState() == 2) {
        SetFocus(item(Search));
        SendMessageW(item(Search), EM_SETSEL, 0, -1);
    } else if (message.wParam == VK_F3) {
        find(isDown(VK_SHIFT));
    } else if (message.wParam == VK_F5) {
        refresh();
    } else if (message.wParam == 'A' && shiftState() == 2) {
        SendMessageW(GetFocus(), EM_SETSEL, 0, -1);
    } else {
        return false;
    }
    return true;
}

void LogDialog::refresh() {
    dialog_.refresh();
    const std::wstring text = toWide(dialog_.text());
    setText(Text, text);
    folded_ = folded(text);
    select(text.size(), 0);
}

void LogDialog::copy() {
    DWORD from = 0;
    DWORD to = 0;
    SendMessageW(item(Text), EM_GETSEL, reinterpret_cast<WPARAM>(&from), reinterpret_cast<LPARAM>(&to));
    if (from != to)
        SendMessageW(item(Text), WM_COPY, 0, 0);
    else
        copyText(handle(), text(Text));
}

void LogDialog::find(bool backward) {
    const std::wstring wanted = folded(text(Search));
    if (wanted.empty())
        return;
    DWORD from = 0;
    DWORD to = 0;
    SendMessageW(item(Text), EM_GETSEL, reinterpret_cast<WPARAM>(&from), reinterpret_cast<LPARAM>(&to));
    size_t at = backward ? (from > 0 ? folded_.rfind(wanted, from - 1) : std::wstring::npos)
                         : folded_.find(wanted, to);
    if (at == std::wstring::npos)
        at = backward ? folded_.rfind(wanted) : folded_.find(wanted);
    setText(Found, at == std::wstring::npos ? L"Not found" : L"");
    if (at != std::wstring::npos)
        select(at, wanted.size());
}

void LogDialog::select(size_t from, size_t length) {
    SendMessageW(item(Text), EM_SETSEL, from, static_cast<LPARAM>(from + length));
    SendMessageW(item(Text), EM_SCROLLCARET, 0, 0);
}

} // namespace pixmo::com
