#include "faces/qt/windows/dialogs.h"

#include "faces/qt/windows/dialogwindow.h"
#include "faces/qt/windows/savepagedialog.h"

#include <QPointer>

namespace pixmo::qt {

// The widget's end is its windows' end.
void Dialogs::showModal(Dialog& dialog) {
    if (!link_->owner)
        return dialog.cancel();
    const QPointer<DialogWindow> window = new DialogWindow(dialog, link_->top());
    window->exec();
    delete window;
}

std::optional<std::filesystem::path> Dialogs::askSavePath(dlgSavePage& dialog) {
    if (!link_->owner)
        return std::nullopt;
    const QPointer<SavePageDialog> window = new SavePageDialog(dialog, link_->owner);
    std::optional<std::filesystem::path> path;
    if (window->exec() == QDialog::Accepted && window)
        path = window->chosenPath().toStdU16String();
    delete window;
    return path;
}

} // namespace pixmo::qt
