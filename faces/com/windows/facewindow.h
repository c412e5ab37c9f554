#pragma once

#include "core/control/imageview.h"
#include "faces/com/base/facelink.h"
#include "faces/com/base/gdi.h"
#include "faces/com/base/window.h"
#include "faces/com/windows/commandtoolbar.h"
#include "faces/com/windows/debugpane.h"
#include "faces/com/windows/lookwatcher.h"
#include "faces/com/windows/pageview.h"
#include "faces/com/windows/statusrow.h"

#include <memory>

namespace pixmo::com {

/// The control's outer window: toolbar, page, debug pane and status row, laid out by the core, and what they
/// show of the control.
class FaceWindow : public Window {
public:
    static std::shared_ptr<FaceWindow> create(HWND parent, const RECT& place, const SharedFaceLink& link,
                                              const std::shared_ptr<ImageView>& control);

    const std::shared_ptr<PageView>& page() const { return page_; }
    /// The control has changed beside its page.
    void mirror();
    /// Colours, font, border or resolution may have changed.
    void applyLook();
    void takeFocus();
    /// Whether it was a key that these windows use themselves.
    bool translateKey(MSG& message);

protected:
    std::optional<LRESULT> onMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    bool takeLayout() const;
    bool makeChildren();
    void connect();
    void layOutChildren(bool resized);
    void applyProperty(const std::string& name);
    bool passFocus(bool inDebug);
    void showToolbarMenu(LPARAM lParam);
    void paintBack(HDC dc) const;
    std::optional<LRESULT> colourOf(HDC dc, HWND child) const;
    void activated();
    int border() const;
    Colour colourProperty(std::string_view name) const;

    SharedFaceLink link_;
    std::shared_ptr<ImageView> control_;
    std::unique_ptr<CommandToolbar> toolbar_;
    std::shared_ptr<PageView> page_;
    std::unique_ptr<DebugPane> debug_;
    std::unique_ptr<StatusRow> status_;
    std::shared_ptr<LookWatcher> watcher_;
    FontHandle font_;
    BrushHandle back_;
    RECT viewPlace_{};
    int dpi_ = 0;
    bool takingFocus_ = false;
};

} // namespace pixmo::com
