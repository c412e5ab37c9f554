#pragma once

#include "core/platform/printwindows.h"
#include "faces/com/base/facelink.h"

namespace pixmo::com {

/// The windows of printing over the host's.
class PrintWindows : public pixmo::PrintWindows {
public:
    explicit PrintWindows(SharedFaceLink link) : link_(std::move(link)) {}

    void showModal(dlgPrint& dialog) override;
    void showModal(PrintPreview& preview) override;

private:
    SharedFaceLink link_;
};

} // namespace pixmo::com
