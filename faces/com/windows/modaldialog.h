#pragma once

#include "faces/com/base/facelink.h"
#include "faces/com/base/messagetaker.h"
#include "faces/com/windows/commoncontrols.h"
#include "faces/com/windows/dialogtemplate.h"
#include "faces/com/windows/programicon.h"

#include <memory>
#include <optional>
#include <string>
#include <windows.h>

namespace pixmo::com {

/// A modal window over the host's, of the system's own controls. A derived class adds them to layout() in its
/// constructor and answers their messages. When the face ends while it stands, it is cancelled. Enter presses
/// the default button, Escape is IDCANCEL, IDOK and IDCANCEL close it unless they are answered otherwise.
class ModalDialog : private MessageTaker {
public:
    ModalDialog(const ModalDialog&) = delete;
    ModalDialog& operator=(const ModalDialog&) = delete;

    /// Waits until the window is closed, handling the thread's messages; what it was closed with, IDCANCEL
    /// when it cannot be shown.
    int run(const SharedFaceLink& link);

    HWND handle() const { return handle_; }
    /// The object of that window; nullptr when it is another program part's.
    static ModalDialog* of(HWND window);

protected:
    ModalDialog(const std::wstring& title, short width, short height, DWORD style = 0);
    virtual ~ModalDialog();

    DialogTemplate& layout() { return layout_; }

    /// All controls are there; the window is not to be seen yet.
    virtual void onInit() {}
    /// Whether the command is done with.
    virtual bool onCommand(WORD id, WORD code);
    virtual void onResize(SIZE) {}
    /// A key before the dialog itself sees it. Whether it is done with.
    virtual bool onKey(const MSG&) { return false; }
    /// Other messages; none: the dialog's own answer. WM_NOTIFY's result is the answer itself.
    virtual std::optional<INT_PTR> onMessage(UINT, WPARAM, LPARAM) { return std::nullopt; }
    /// The window is about to end.
    virtual void onClose() {}

    void close(int result);
    HWND item(WORD id) const { return GetDlgItem(handle_, id); }
    std::wstring text(WORD id) const;
    void setText(WORD id, const std::wstring& text) const;
    void setFont(WORD id, HFONT font) const;
    /// The place of a rectangle of dialog units, device pixels.
    RECT pixels(const DialogTemplate::Place& place) const;
    int dpi() const;

private:
    static INT_PTR CALLBACK procedure(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) noexcept;
    INT_PTR answer(UINT message, WPARAM wParam, LPARAM lParam);
    bool open(HWND owner);
    void wait();
    bool takes(MSG& message) override;
    void centreOver(HWND owner) const;

    DialogTemplate layout_;
    std::shared_ptr<CommonControls> controls_ = CommonControls::share();
    WindowIcons icons_;
    HWND handle_ = nullptr;
    int result_ = IDCANCEL;
    bool closed_ = false;
};

} // namespace pixmo::com
