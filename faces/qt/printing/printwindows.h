#pragma once

#include "core/platform/printwindows.h"
#include "faces/qt/ports/facelink.h"

namespace pixmo::qt {

/// The windows of printing over the control's widget.
class PrintWindows : public pixmo::PrintWindows {
public:
    explicit PrintWindows(SharedFaceLink link) : link_(std::move(link)) {}

    void showModal(dlgPrint& dialog) override;
    void showModal(PrintPreview& preview) override;

private:
    SharedFaceLink link_;
};

} // namespace pixmo::qt
