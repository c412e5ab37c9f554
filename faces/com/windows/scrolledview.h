#pragma once

#include "core/drawing/textrun.h"
#include "core/imaging/viewgeometry.h"
#include "core/raster/raster.h"
#include "faces/com/base/pixelbuffer.h"
#include "faces/com/base/window.h"
#include "faces/com/windows/accessible.h"
#include "faces/com/windows/dpi.h"

#include <vector>

namespace pixmo::com {

/// A window whose pixels the core paints and whose scroll bars are the core's; takes the keyboard.
class ScrolledView : public Window, public AccessibleSource {
public:
    /// Device pixels, without scroll bars.
    Size viewSize() const;
    int dpi() const { return dpi_; }
    double ratio() const { return static_cast<double>(dpi_) / UsualDpi; }
    /// One of the Pointer codes.
    virtual void setPointer(int32_t) {}

protected:
    std::optional<LRESULT> onMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
    /// Paints the window's pixels; what is returned is written upon them.
    virtual std::vector<TextRun> paint(const PixelSurface& surface, const TextMeasure& measure) = 0;
    /// What a bar of the system, SB_HORZ or SB_VERT, shows of the core.
    virtual ScrollBar scrollBar(int which) const = 0;
    virtual void scrollTo(int which, int32_t position) = 0;
    virtual void showMenu(LPARAM lParam) = 0;

    /// In which texts are written.
    void setFonts(HFONT plain, HFONT bold);
    void setDpi(int dpi) { dpi_ = dpi; }
    bool hasFocus() const { return GetFocus() == handle(); }
    void mirrorBar(int which) const;

private:
    HFONT fontOf(bool bold) const { return bold ? bold_ : plain_; }
    Size measure(const std::string& text, bool bold, int32_t room) const;
    void write(const TextRun& run) const;
    void show();
    int32_t scrolled(int which, WORD request) const;

    PixelBuffer buffer_;
    HFONT plain_ = static_cast<HFONT>(GetStockObject(DEFAULT_GUI_FONT));
    HFONT bold_ = plain_;
    int dpi_ = UsualDpi;
};

} // namespace pixmo::com
