#pragma once

#include "core/control/imageview.h"
#include "core/control/layout.h"
#include "faces/com/windows/commoncontrols.h"
#include "faces/com/windows/tip.h"

#include <memory>
#include <string>
#include <windows.h>

namespace pixmo::com {

/// The row below the page: read-out, status text, progress and zoom.
class StatusRow {
public:
    /// The children belong to the parent. A mirrored row begins at its right end.
    StatusRow(HWND parent, bool mirrored);

    void mirror(const ImageView& control);
    /// Whether the zoom now needs another width; then the row is laid out anew.
    bool mirrorZoom(const ImageView& control);
    /// nullptr: the system's own font.
    void setFont(HFONT font, int dpi);
    void measure(LayoutMeasures& measures) const;
    void place(const ControlLayout& layout, POINT origin);

private:
    HWND makeText(HWND parent, DWORD style) const;
    void showTip();

    std::shared_ptr<CommonControls> controls_ = CommonControls::share();
    bool mirrored_;
    HWND readOut_;
    HWND status_;
    HWND zoom_;
    HWND progress_;
    Tip tip_;
    HFONT font_ = nullptr;
    int dpi_ = 96;
    std::wstring readOutText_;
    std::wstring statusText_;
    std::wstring zoomText_;
    int progressPercent_ = -1;
};

} // namespace pixmo::com
