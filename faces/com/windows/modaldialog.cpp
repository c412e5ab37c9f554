#include "faces/com/windows/modaldialog.h"

#include "faces/com/base/window.h"
#include "faces/com/windows/dpi.h"

#include <algorithm>
#include <utility>

namespace pixmo::com {

namespace {

/// Nobody uses the owner while a modal window stands over it.
class OwnerDisabled {
public:
    explicit OwnerDisabled(HWND owner)
        : owner_(owner), focus_(GetFocus()), wasEnabled_(owner && !EnableWindow(owner, FALSE)) {}
    ~OwnerDisabled() {
        end();
        if (focus_ && IsWindow(focus_))
            SetFocus(focus_);
    }
    OwnerDisabled(const OwnerDisabled&) = delete;
    OwnerDisabled& operator=(const OwnerDisabled&) = delete;

    /// Before the modal window goes, so that the system brings the owner to the front.
    void end() {
        if (std::exchange(wasEnabled_, false) && IsWindow(owner_))
            EnableWindow(owner_, TRUE);
    }

private:
    HWND owner_;
    HWND focus_;
    bool wasEnabled_;
};

} // namespace

ModalDialog::ModalDialog(const std::wstring& title, short width, short height, DWORD style)
    : layout_(title, width, height, style) {}

ModalDialog::~ModalDialog() = default;

int ModalDialog::run(const SharedFaceLink& link) {
    if (!link->host())
        return IDCANCEL;
    const ModalScope scope(link);
    const HWND owner = link->owner();
    const size_t ending = link->Ending.connect([this] { close(IDCANCEL); });
    OwnerDisabled disabled(owner);
    if (open(owner)) {
        wait();
        onClose();
        disabled.end();
        attach(handle_, nullptr);
        SetWindowLongPtrW(handle_, DWLP_USER, 0);
        DestroyWindow(std::exchange(handle_, nullptr));
    }
    link->Ending.disconnect(ending);
    return result_;
}

bool ModalDialog::open(HWND owner) {
    {
        const CommonControls::Scope scope(*controls_);
        handle_ = CreateDialogIndirectParamW(thisModule(), layout_.data(), owner, procedure,
                                             reinterpret_cast<LPARAM>(this));
    }
    if (!handle_)
        return false;
    attach(handle_, this);
    icons_.giveTo(handle_);
    centreOver(owner);
    ShowWindow(handle_, SW_SHOW);
    return true;
}

void ModalDialog::wait() {
    while (!closed_) {
        MSG message{};
        const BOOL got = GetMessageW(&message, nullptr, 0, 0);
        if (got <= 0) {
            // The program ends: its own loop must hear of it too.
            if (got == 0)
                PostQuitMessage(static_cast<int>(message.wParam));
            return;
        }
        if (takes(message))
            continue;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

bool ModalDialog::takes(MSG& message) {
    const bool own = message.hwnd == handle_ || IsChild(handle_, message.hwnd);
    return own && ((message.message == WM_KEYDOWN && onKey(message)) || IsDialogMessageW(handle_, &message));
}

void ModalDialog::close(int result) {
    result_ = result;
    closed_ = true;
    // Wakes the loop that waits.
    if (handle_)
        PostMessageW(handle_, WM_NULL, 0, 0);
}

/// Within the usable part of the owner's screen.
void ModalDialog::centreOver(HWND owner) const {
    MONITORINFO screen{};
    screen.cbSize = sizeof screen;
    GetMonitorInfoW(MonitorFromWindow(owner ? owner : handle_, MONITOR_DEFAULTTONEAREST), &screen);
    RECT over = screen.rcWork;
    if (owner && IsWindowVisible(owner) && !IsIconic(owner))
        GetWindowRect(owner, &over);
    RECT own{};
    GetWindowRect(handle_, &own);
    const LONG width = own.right - own.left;
    const LONG height = own.bottom - own.top;
    const auto placed = [](LONG from, LONG to, LONG length, LONG least, LONG most) {
        return std::max(least, std::min((from + to - length) / 2, most - length));
    };
    SetWindowPos(handle_, nullptr,
                 placed(over.left, over.right, width, screen.rcWork.left, screen.rcWork.right),
                 placed(over.top, over.bottom, height, screen.rcWork.top, screen.rcWork.bottom), 0, 0,
                 SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

ModalDialog* ModalDialog::of(HWND window) {
    const auto own = reinterpret_cast<LONG_PTR>(procedure);
    return window && GetWindowLongPtrW(window, DWLP_DLGPROC) == own
               ? reinterpret_cast<ModalDialog*>(GetWindowLongPtrW(window, DWLP_USER))
               : nullptr;
}

INT_PTR CALLBACK ModalDialog::procedure(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
    if (message == WM_INITDIALOG) {
        SetWindowLongPtrW(handle, DWLP_USER, lParam);
        reinterpret_cast<ModalDialog*>(lParam)->handle_ = handle;
    }
    auto* const dialog = reinterpret_cast<ModalDialog*>(GetWindowLongPtrW(handle, DWLP_USER));
    if (!dialog)
        return FALSE;
    try {
        return dialog->answer(message, wParam, lParam);
    } catch (...) {
        OutputDebugStringW(L"A dialog message failed.\n");
        return FALSE;
    }
}

INT_PTR ModalDialog::answer(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_INITDIALOG:
        onInit();
        // The first control has the focus, and its text selected, unless onInit has put it elsewhere.
        return GetFocus() && IsChild(handle_, GetFocus()) ? FALSE : TRUE;
    case WM_COMMAND:
        return onCommand(LOWORD(wParam), HIWORD(wParam));
    case WM_CLOSE:
        return onCommand(IDCANCEL, BN_CLICKED);
    case WM_SIZE:
        onResize({LOWORD(lParam), HIWORD(lParam)});
        return TRUE;
    default:
        return onMessage(message, wParam, lParam).value_or(FALSE);
    }
}

bool ModalDialog::onCommand(WORD id, WORD code) {
    if (code != BN_CLICKED || (id != IDOK && id != IDCANCEL))
        return false;
    close(id);
    return true;
}

std::wstring ModalDialog::text(WORD id) const {
    const HWND control = item(id);
    std::wstring text(static_cast<size_t>(GetWindowTextLengthW(control)), L'\0');
    const int length = GetWindowTextW(control, text.data(), static_cast<int>(text.size()) + 1);
    text.resize(static_cast<size_t>(length));
    return text;
}

void ModalDialog::setText(WORD id, const std::wstring& text) const {
    SetWindowTextW(item(id), text.c_str());
}

void ModalDialog::setFont(WORD id, HFONT font) const {
    SendMessageW(item(id), WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
}

RECT ModalDialog::pixels(const DialogTemplate::Place& place) const {
    RECT rectangle = {place.left, place.top, place.left + place.width, place.top + place.height};
    MapDialogRect(handle_, &rectangle);
    return rectangle;
}

int ModalDialog::dpi() const {
    return dpiOf(handle_);
}

} // namespace pixmo::com
