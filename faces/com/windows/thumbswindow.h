#pragma once

#include "core/thumbs/dlgthumbs.h"
#include "faces/com/base/window.h"
#include "faces/com/windows/commandtoolbar.h"
#include "faces/com/windows/programicon.h"
#include "faces/com/windows/thumbsview.h"

#include <memory>

namespace pixmo::com {

/// The window of dlgThumbs: its toolbar, its menus and the thumbnails. Stays above the window that owns it.
class ThumbsWindow : public Window {
public:
    static std::shared_ptr<ThumbsWindow> create(HWND owner);

    const std::shared_ptr<ThumbsView>& view() const { return view_; }
    /// Shows the window where it was last, or brings it to the front.
    void open(const std::shared_ptr<dlgThumbs>& thumbs);
    /// Closes the window; nothing reaches the object any more.
    void end();

protected:
    std::optional<LRESULT> onMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    bool makeChildren();
    void run(const std::string& key);
    void showMenu(std::vector<MenuItem> (dlgThumbs::*which)() const, POINT place);
    void connectTo(const std::shared_ptr<dlgThumbs>& thumbs);
    void place(const dlgThumbs& thumbs);
    void savePlace();
    void close();
    void mirror();
    void layOutChildren();
    void applyLook();

    std::weak_ptr<dlgThumbs> thumbs_;
    std::unique_ptr<CommandToolbar> toolbar_;
    std::shared_ptr<ThumbsView> view_;
    WindowIcons icons_;
};

} // namespace pixmo::com
