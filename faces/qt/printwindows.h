#pragma once

#include "core/platform/printwindows.h"
#include "faces/qt/widgetlink.h"

namespace pixmo::qt {

/// The windows of printing over the control's widget.
class PrintWindows : public pixmo::PrintWindows {
public:
    explicit PrintWindows(SharedWidgetLink link) : link_(std::move(link)) {}

    void showModal(dlgPrint& dialog) override;
    void showModal(PrintPreview& preview) override;

private:
    SharedWidgetLink link_;
};

} // namespace pixmo::qt
