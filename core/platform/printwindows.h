#pragma once

namespace pixmo {

class dlgPrint;
class PrintPreview;

/// Port: shows the windows of printing. Both return when the window is closed and may run other events of
/// the thread meanwhile.
class PrintWindows {
public:
    virtual ~PrintWindows() = default;

    virtual void showModal(dlgPrint& dialog) = 0;
    virtual void showModal(PrintPreview& preview) = 0;
};

} // namespace pixmo
