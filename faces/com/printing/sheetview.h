#pragma once

#include "core/platform/dialog.h"
#include "faces/com/base/pixelbuffer.h"

#include <functional>
#include <memory>
#include <string>
#include <windows.h>

namespace pixmo::com {

/// Where a preview shows its sheet: a control that its window paints.
class SheetView : public SheetCanvas {
public:
    using Resized = std::function<void(SheetCanvas*, Size)>;

    /// The control outlives the object.
    SheetView(HWND control, Resized resized) : control_(control), resized_(std::move(resized)) {}
    ~SheetView() override { resized_(nullptr, {}); }
    SheetView(const SheetView&) = delete;
    SheetView& operator=(const SheetView&) = delete;

    void resized();
    void paint(const DRAWITEMSTRUCT& item, HFONT font) const;

    std::unique_ptr<pixmo::PrinterDevice> newSheet(const pixmo::PrinterDevice& printer, Size size) override;
    void showSheet() override;
    void say(const std::string& text) override;

private:
    HWND control_;
    Resized resized_;
    std::shared_ptr<PixelBuffer> drawn_; ///< not shown yet
    std::shared_ptr<PixelBuffer> sheet_;
    std::wstring message_; ///< stands in place of the sheet
};

} // namespace pixmo::com
