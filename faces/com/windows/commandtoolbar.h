#pragma once

#include "core/base/toolbar.h"
#include "faces/com/windows/commoncontrols.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>
#include <windows.h>

namespace pixmo::com {

/// A toolbar of the system that mirrors one of the core. Its window is made anew when it has to look
/// otherwise; messages to its parent about it are handed to it.
class CommandToolbar {
public:
    using Run = std::function<void(const std::string& key)>;

    /// The name is for assistive programs. A mirrored toolbar begins at its right end.
    CommandToolbar(HWND parent, std::string_view name, bool mirrored, Run run);
    ~CommandToolbar();
    CommandToolbar(const CommandToolbar&) = delete;
    CommandToolbar& operator=(const CommandToolbar&) = delete;

    HWND handle() const { return bar_; }
    void mirror(const Toolbar& toolbar);
    /// Colours, resolution or the font have changed; nullptr: the system's. What lies behind the buttons is
    /// the owner's.
    void renew(HFONT font, HBRUSH back);
    /// The height that the buttons take when they are wrapped into rows of that width, in device pixels.
    int heightFor(int width) const;
    void place(const RECT& place) const;
    /// None: not about this toolbar.
    std::optional<LRESULT> onParentMessage(UINT message, WPARAM wParam, LPARAM lParam);
    /// Where a button is on the screen; none while it is not there.
    std::optional<RECT> buttonPlace(const std::string& key) const;

private:
    /// What makes another window necessary when it changes.
    struct Look {
        std::vector<std::string> keys;
        bool captions = false;
        int32_t imageSize = 0; ///< device pixels
        int dpi = 0;
        bool operator==(const Look&) const = default;
    };

    Look lookOf(const Toolbar& toolbar) const;
    void makeWindow(const Toolbar& toolbar);
    void setSizes() const;
    SIZE pictureSize() const;
    void addButtons(const Toolbar& toolbar) const;
    void setWidth(int command, const std::wstring& caption) const;
    HIMAGELIST makeImages(const Toolbar& toolbar, COLORREF colour) const;
    void destroyWindow();
    void showTip(NMTBGETINFOTIPW& tip) const;
    std::optional<LRESULT> erase(const NMTBCUSTOMDRAW& drawing) const;

    HWND parent_;
    std::wstring name_;
    bool mirrored_;
    Run run_;
    std::shared_ptr<CommonControls> controls_ = CommonControls::share();
    HWND bar_ = nullptr;
    HFONT font_ = nullptr;
    HBRUSH back_ = GetSysColorBrush(COLOR_BTNFACE);
    HIMAGELIST images_ = nullptr;
    HIMAGELIST disabledImages_ = nullptr;
    Look look_;
    std::vector<std::string> tips_; ///< by button
    bool inCommand_ = false;
};

} // namespace pixmo::com
