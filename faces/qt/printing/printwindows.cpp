#include "faces/qt/printing/printwindows.h"

#include "faces/qt/printing/previewdialog.h"
#include "faces/qt/printing/printdialog.h"

#include <QApplication>
#include <QPointer>

namespace pixmo::qt {

void PrintWindows::showModal(dlgPrint& dialog) {
    if (!link_->owner)
        return;
    const QPointer<PrintDialog> window = new PrintDialog(dialog, link_->owner);
    window->exec();
    delete window;
}

void PrintWindows::showModal(PrintPreview& preview) {
    if (!link_->owner)
        return;
    QWidget* const above = QApplication::activeModalWidget();
    const QPointer<PreviewDialog> window = new PreviewDialog(preview, above ? above : link_->owner);
    window->exec();
    delete window;
}

} // namespace pixmo::qt
