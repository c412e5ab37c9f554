#pragma once

#include <memory>
#include <optional>
#include <windows.h>

namespace pixmo::com {

/// The module, program or library, that this code is part of.
HINSTANCE thisModule();

/// One window of a class of ours and the object that answers its messages. The object is held while it
/// answers, so that a message may bring about its end; made by std::make_shared. No exception leaves it.
class Window : public std::enable_shared_from_this<Window> {
public:
    virtual ~Window();
    Window(const Window&) = delete;
    Window& operator=(const Window&) = delete;

    /// nullptr while there is no window.
    HWND handle() const { return handle_; }
    void destroy();

protected:
    struct Kind {
        const wchar_t* className;
        UINT style = 0; ///< CS_...
    };
    struct Making {
        HWND parent = nullptr;
        DWORD style = 0;
        DWORD exStyle = 0;
        RECT place{};
        const wchar_t* text = L"";
    };

    Window() = default;

    /// False when the system refuses.
    bool make(const Kind& kind, const Making& making);
    /// None: the system's own answer.
    virtual std::optional<LRESULT> onMessage(UINT message, WPARAM wParam, LPARAM lParam) = 0;

    SIZE clientSize() const;
    void invalidate() const;

private:
    static LRESULT CALLBACK procedure(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) noexcept;
    static Window* attach(HWND handle, LPARAM lParam);
    LRESULT answer(UINT message, WPARAM wParam, LPARAM lParam) noexcept;

    HWND handle_ = nullptr;
};

} // namespace pixmo::com
