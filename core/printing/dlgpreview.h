#pragma once

#include "core/platform/dialog.h"
#include "core/platform/timer.h"
#include "core/printing/printpreview.h"

#include <cstdint>
#include <memory>

namespace pixmo {

/// Shows the sheets of a job, one at a time, as large as fits.
class dlgPreview : public Dialog {
public:
    /// Both outlive the window.
    dlgPreview(PrintPreview& preview, TimerFactory& timers);

    DialogDescription describe() override;
    /// Who still waits for a page gives up.
    void cancel() override;

    /// The sheet before the first or behind the last is these.
    void turnTo(int32_t sheet);
    int32_t sheet() const { return sheet_; }
    /// Where the sheet is shown has another size, in device pixels; nullptr: it is no more.
    void canvasResized(SheetCanvas* canvas, Size room);

private:
    DialogPart buttons();
    void drawSheet();
    int32_t drawOn(SheetCanvas& canvas, int32_t sheet);

    PrintPreview& preview_;
    std::unique_ptr<Timer> drawSoon_;   ///< a window that is being resized draws once
    std::unique_ptr<Timer> sayLoading_; ///< while the sheet of before stands there too long
    SheetCanvas* canvas_ = nullptr;
    Size room_;
    int32_t sheet_ = 0;
};

} // namespace pixmo
