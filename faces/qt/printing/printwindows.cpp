#include "faces/qt/printing/printwindows.h"

#include "faces/qt/printing/previewdialog.h"
#include "faces/qt/printing/printdialog.h"
#include "faces/qt/widget/imageview.h"

#include <QApplication>
#include <QPointer>

namespace pixmo::qt {

void PrintWindows::showModal(dlgPrint& dialog) {
    if (!link_->widget)
        return;
    const QPointer<PrintDialog> window = new PrintDialog(dialog, link_->widget);
    window->exec();
    delete window;
}

void PrintWindows::showModal(PrintPreview& preview) {
    if (!link_->widget)
        return;
    QWidget* const above = QApplication::activeModalWidget();
    const QPointer<PreviewDialog> window = new PreviewDialog(preview, above ? above : link_->widget);
    window->exec();
    delete window;
}

} // namespace pixmo::qt
