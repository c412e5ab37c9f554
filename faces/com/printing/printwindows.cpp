#include "faces/com/printing/printwindows.h"

#include "faces/com/printing/previewdialog.h"
#include "faces/com/printing/printdialog.h"

namespace pixmo::com {

void PrintWindows::showModal(dlgPrint& dialog) {
    PrintDialog(dialog).run(link_);
}

void PrintWindows::showModal(PrintPreview& preview) {
    PreviewDialog(preview).run(link_);
}

} // namespace pixmo::com
