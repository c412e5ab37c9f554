#pragma once

#include "core/control/imageview.h"
#include "faces/com/base/window.h"
#include "faces/com/windows/accessible.h"
#include "faces/com/windows/dpi.h"
#include "faces/com/windows/pixelbuffer.h"

#include <functional>
#include <memory>
#include <string>

namespace pixmo::com {

/// The page: shows what the control composes, scrolls it and takes mouse and keyboard.
class PageView : public Window, public AccessibleSource {
public:
    static std::shared_ptr<PageView> create(HWND parent, const std::shared_ptr<ImageView>& control);

    /// The user has brought the keyboard here.
    void setActivated(std::function<void()> activated) { activated_ = std::move(activated); }
    /// In which notices are written, nullptr: the system's own; and the resolution of the control's window.
    void setFont(HFONT font, int dpi);
    int dpi() const { return dpi_; }
    /// Notice or page may be others than before.
    void refresh();
    void setPointer(int32_t code);
    /// Of what the page is shown in.
    Size viewSize() const;
    void mouseWheel(double notchesX, double notchesY, POINT screen);

    std::wstring accessibleName(LONG child) const override;
    LONG accessibleRole(LONG child) const override;
    LONG accessibleState(LONG child) const override;

protected:
    std::optional<LRESULT> onMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    std::optional<LRESULT> onKeyboard(UINT message, WPARAM wParam);
    std::optional<LRESULT> onMouse(UINT message, WPARAM wParam, LPARAM lParam);
    void paint();
    void writeNotice(const std::wstring& notice);
    void showBars();
    void mirrorBars();
    void scroll(int bar, WORD request);
    void showMenu(LPARAM lParam);
    bool keyDown(int16_t pressed);
    void keyPress(wchar_t character);
    void keyUp(int16_t released);
    void press(int32_t button, POINT place);
    void release(int32_t button, POINT place);
    void loseMouse();

    std::weak_ptr<ImageView> control_;
    std::function<void()> activated_;
    PixelBuffer buffer_;
    HFONT font_ = nullptr;
    int dpi_ = UsualDpi;
    HCURSOR pointer_ = nullptr;
    bool mirroring_ = false;
    bool keyTaken_ = false; ///< by the host; then it takes the key's character too
};

} // namespace pixmo::com
