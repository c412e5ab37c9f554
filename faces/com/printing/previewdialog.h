#pragma once

#include "core/printing/printpreview.h"
#include "faces/com/windows/modaldialog.h"
#include "faces/com/windows/pixelbuffer.h"

#include <memory>
#include <string>

namespace pixmo::com {

/// The window of a PrintPreview: one sheet as large as fits, and the way to the others by buttons, Page Up,
/// Page Down, Home and End.
class PreviewDialog : public ModalDialog {
public:
    /// The preview outlives the window.
    explicit PreviewDialog(PrintPreview& preview);

protected:
    void onInit() override;
    bool onCommand(WORD id, WORD code) override;
    bool onKey(const MSG& message) override;
    void onResize(SIZE size) override;
    std::optional<INT_PTR> onMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
    void onClose() override;

private:
    void turnTo(int32_t sheet);
    RECT sheetRoom() const;
    void drawSheet();
    void say(const std::wstring& text);
    void paint() const;
    void onTimer(UINT_PTR timer);

    PrintPreview& preview_;
    std::unique_ptr<PixelBuffer> pixels_; ///< the sheet; null before there is one
    std::wstring message_;                ///< stands in place of the sheet
    int32_t sheet_ = 0;
};

} // namespace pixmo::com
