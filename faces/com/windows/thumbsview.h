#pragma once

#include "core/thumbs/dlgthumbs.h"
#include "faces/com/base/gdi.h"
#include "faces/com/windows/scrolledview.h"
#include "faces/com/windows/tip.h"

#include <functional>
#include <memory>
#include <string>

namespace pixmo::com {

/// The thumbnails of dlgThumbs: shows those that are to be seen, scrolls them, takes mouse and keyboard.
class ThumbsView : public ScrolledView {
public:
    static std::shared_ptr<ThumbsView> create(HWND parent);

    /// Held only while it is called; nullptr: nothing is painted any more.
    void setThumbs(const std::shared_ptr<dlgThumbs>& thumbs) { thumbs_ = thumbs; }
    /// Where a menu is asked for, on the screen.
    void setMenu(std::function<void(POINT)> menu) { menu_ = std::move(menu); }
    /// Escape.
    void setLeave(std::function<void()> leave) { leave_ = std::move(leave); }
    /// The object has changed.
    void mirror();
    /// Tells the object of the room and the resolution that there are.
    void resizeThumbs();
    /// The system has other fonts or another resolution.
    void renew();

    std::wstring accessibleName(LONG child) const override;
    std::wstring accessibleDescription(LONG child) const override;
    LONG accessibleRole(LONG child) const override;
    LONG accessibleState(LONG child) const override;
    LONG accessibleCount() const override;
    RECT accessiblePlace(LONG child) const override;
    LONG accessibleChildAt(POINT place) const override;
    LONG accessibleFocus() const override;
    std::wstring accessibleAction(LONG child) const override;
    void doAccessibleAction(LONG child) override;
    void selectAccessible(LONG child, bool selected) override;

protected:
    std::optional<LRESULT> onMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
    std::vector<TextRun> paint(const PixelSurface& surface, const TextMeasure& measure) override;
    ScrollBar scrollBar(int which) const override;
    void scrollTo(int which, int32_t position) override;
    void showMenu(LPARAM lParam) override;

private:
    std::optional<LRESULT> onMouse(UINT message, WPARAM wParam, LPARAM lParam);
    bool keyDown(int16_t keyCode);
    void applyResolution();
    void showTip(RealPoint place);
    void press(int32_t button, RealPoint place);
    void release();
    void tellAccessibility(dlgThumbs& thumbs) const;
    /// A place of the window as the object counts, and the other way round.
    RealPoint fromDevice(POINT place) const;
    RECT toDevice(const Rectangle& place) const;

    std::weak_ptr<dlgThumbs> thumbs_;
    std::function<void(POINT)> menu_;
    std::function<void()> leave_;
    FontHandle font_;
    FontHandle boldFont_;
    Tip tip_;
    std::wstring tipText_;
};

} // namespace pixmo::com
