#include "faces/com/base/window.h"

#include <set>
#include <string>
#include <utility>

extern "C" IMAGE_DOS_HEADER __ImageBase; // NOLINT(bugprone-reserved-identifier): the linker's name

namespace pixmo::com {

namespace {

/// The window classes of this module; they go when the module does, as its code goes.
class WindowClasses {
public:
    WindowClasses() = default;
    ~WindowClasses() {
        for (const std::wstring& name : names_)
            UnregisterClassW(name.c_str(), thisModule());
    }
    WindowClasses(const WindowClasses&) = delete;
    WindowClasses& operator=(const WindowClasses&) = delete;

    void need(const wchar_t* name, UINT style, WNDPROC procedure) {
        if (!names_.insert(name).second)
            return;
        WNDCLASSEXW description{};
        description.cbSize = sizeof description;
        description.style = style;
        description.lpfnWndProc = procedure;
        description.hInstance = thisModule();
        description.hCursor = LoadCursorW(nullptr, IDC_ARROW);
        description.lpszClassName = name;
        RegisterClassExW(&description);
    }

private:
    std::set<std::wstring> names_;
};

WindowClasses& windowClasses() {
    static WindowClasses classes;
    return classes;
}

} // namespace

HINSTANCE thisModule() {
    return reinterpret_cast<HINSTANCE>(&__ImageBase);
}

Window::~Window() {
    if (handle_)
        SetWindowLongPtrW(handle_, GWLP_USERDATA, 0);
    destroy();
}

void Window::destroy() {
    if (const HWND ending = std::exchange(handle_, nullptr))
        DestroyWindow(ending);
}

bool Window::make(const Kind& kind, const Making& making) {
    windowClasses().need(kind.className, kind.style, procedure);
    const RECT& place = making.place;
    return CreateWindowExW(making.exStyle, kind.className, making.text, making.style, place.left, place.top,
                           place.right - place.left, place.bottom - place.top, making.parent, nullptr,
                           thisModule(), this) != nullptr;
}

Window* Window::attach(HWND handle, LPARAM lParam) {
    auto* const window = static_cast<Window*>(reinterpret_cast<const CREATESTRUCTW*>(lParam)->lpCreateParams);
    SetWindowLongPtrW(handle, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(window));
    window->handle_ = handle;
    return window;
}

LRESULT CALLBACK Window::procedure(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
    auto* window = message == WM_NCCREATE
                       ? attach(handle, lParam)
                       : reinterpret_cast<Window*>(GetWindowLongPtrW(handle, GWLP_USERDATA));
    if (!window)
        return DefWindowProcW(handle, message, wParam, lParam);
    const std::shared_ptr<Window> held = window->weak_from_this().lock();
    if (message != WM_NCDESTROY)
        return window->answer(message, wParam, lParam);
    SetWindowLongPtrW(handle, GWLP_USERDATA, 0);
    window->handle_ = nullptr;
    return DefWindowProcW(handle, message, wParam, lParam);
}

LRESULT Window::answer(UINT message, WPARAM wParam, LPARAM lParam) noexcept {
    const HWND handle = handle_;
    try {
        if (const auto result = onMessage(message, wParam, lParam))
            return *result;
    } catch (...) {
        OutputDebugStringW(L"A window message failed.\n");
    }
    return DefWindowProcW(handle, message, wParam, lParam);
}

SIZE Window::clientSize() const {
    RECT client{};
    GetClientRect(handle_, &client);
    return {client.right, client.bottom};
}

void Window::invalidate() const {
    if (handle_)
        InvalidateRect(handle_, nullptr, FALSE);
}

} // namespace pixmo::com
