#pragma once

#include "core/control/imageview.h"
#include "faces/com/windows/scrolledview.h"

#include <functional>
#include <memory>
#include <string>

namespace pixmo::com {

/// The page: shows what the control composes, scrolls it and takes mouse and keyboard.
class PageView : public ScrolledView {
public:
    static std::shared_ptr<PageView> create(HWND parent, const std::shared_ptr<ImageView>& control);

    /// The user has brought the keyboard here.
    void setActivated(std::function<void()> activated) { activated_ = std::move(activated); }
    /// In which notices are written, nullptr: the system's own; and the resolution of the control's window.
    void setFont(HFONT font, int dpi);
    /// Notice or page may be others than before.
    void refresh();
    void setPointer(int32_t code) override;
    void mouseWheel(double notchesX, double notchesY, POINT screen);

    std::wstring accessibleName(LONG child) const override;
    LONG accessibleRole(LONG child) const override;
    LONG accessibleState(LONG child) const override;

protected:
    std::optional<LRESULT> onMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
    std::vector<TextRun> paint(const PixelSurface& surface, const TextMeasure& measure) override;
    ScrollBar scrollBar(int which) const override;
    void scrollTo(int which, int32_t position) override;
    void showMenu(LPARAM lParam) override;

private:
    std::optional<LRESULT> onKeyboard(UINT message, WPARAM wParam);
    std::optional<LRESULT> onMouse(UINT message, WPARAM wParam, LPARAM lParam);
    void showBars();
    bool keyDown(int16_t pressed);
    void keyPress(wchar_t character);
    void keyUp(int16_t released);
    void press(int32_t button, POINT place);
    void release(int32_t button, POINT place);

    std::weak_ptr<ImageView> control_;
    std::function<void()> activated_;
    HCURSOR pointer_ = nullptr;
    bool mirroring_ = false;
    bool keyTaken_ = false; ///< by the host; then it takes the key's character too
};

} // namespace pixmo::com
