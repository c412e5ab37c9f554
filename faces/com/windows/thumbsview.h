#pragma once

#include "core/thumbs/dlgthumbs.h"
#include "faces/com/base/window.h"
#include "faces/com/windows/accessible.h"
#include "faces/com/windows/gdi.h"
#include "faces/com/windows/pixelbuffer.h"

#include <functional>
#include <memory>
#include <string>

namespace pixmo::com {

/// The thumbnails of dlgThumbs: shows those that are to be seen, scrolls them, takes mouse and keyboard.
class ThumbsView : public Window, public AccessibleSource {
public:
    static std::shared_ptr<ThumbsView> create(HWND parent);

    /// Held only while it is called; nullptr: nothing is painted any more.
    void setThumbs(const std::shared_ptr<dlgThumbs>& thumbs);
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
    Size viewSize() const;

    std::wstring accessibleName(LONG child) const override;
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

private:
    std::optional<LRESULT> onMouse(UINT message, WPARAM wParam, LPARAM lParam);
    void paint();
    void paintThumbs(dlgThumbs& thumbs);
    void writeNotice(const std::wstring& notice) const;
    void applyResolution();
    void makeTip();
    void showTip(POINT place);
    void scroll(WORD request);
    void press(POINT place);
    void moveTo(POINT place);
    void release();
    void scrollWithBand();
    void turnWheel(int delta);
    void showMenu(LPARAM lParam);
    void tellAccessibility(const dlgThumbs& thumbs);
    double ratio() const;
    /// Device pixels of the window as the object counts.
    POINT fromDevice(POINT place) const;
    RECT cell(int32_t item) const;

    std::weak_ptr<dlgThumbs> thumbs_;
    std::function<void(POINT)> menu_;
    std::function<void()> leave_;
    PixelBuffer buffer_;
    FontHandle font_;
    FontHandle boldFont_;
    HWND tip_ = nullptr;
    std::wstring tipText_;
    int32_t tipItem_ = -1;
    POINT pressed_{};
    POINT pointer_{};
    int16_t pressedWith_ = 0;
    bool pressing_ = false;
    int wheel_ = 0; ///< of a notch that made no step yet
    int dpi_ = 0;
    int32_t toldFocus_ = -1;
    size_t toldSelected_ = 0;
};

} // namespace pixmo::com
