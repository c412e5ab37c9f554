#include "faces/qt/windows/dialogs.h"

#include "core/dialogs/dlggotopage.h"
#include "core/dialogs/dlgsavepage.h"
#include "faces/qt/ports/settingsstore.h"
#include "faces/qt/ports/texts.h"
#include "faces/qt/widget/imageview.h"
#include "faces/qt/windows/aboutdialog.h"
#include "faces/qt/windows/gotodialog.h"
#include "faces/qt/windows/logdialog.h"
#include "faces/qt/windows/savepagedialog.h"

#include <QPointer>

namespace pixmo::qt {

namespace {

/// Whether the window was accepted and is still there. Its parent's end is its own.
bool run(const QPointer<QDialog>& window) {
    const bool accepted = window->exec() == QDialog::Accepted;
    if (window)
        window->deleteLater();
    return window && accepted;
}

} // namespace

void Dialogs::showModal(dlgGotoPage& dialog) {
    const QPointer<GotoDialog> window = link_->widget ? new GotoDialog(dialog, link_->widget) : nullptr;
    if (!window || !run(window.data())) {
        dialog.cmdCancel_Click();
        return;
    }
    dialog.setTxtPageNumber(window->number().toStdString());
    dialog.cmdOK_Click();
}

void Dialogs::showModal(dlgAbout& dialog) {
    if (link_->widget)
        run(new AboutDialog(dialog, link_->widget));
}

void Dialogs::showModal(dlgLog& dialog) {
    if (link_->widget)
        run(new LogDialog(dialog, link_->widget));
}

std::optional<std::filesystem::path> Dialogs::askSavePath(const std::string& suggestedName) {
    if (!link_->widget)
        return std::nullopt;
    SettingsStore settings;
    dlgSavePage dialog(suggestedName, settings);
    const QPointer<SavePageDialog> window = new SavePageDialog(dialog, link_->widget);
    if (!run(window.data()))
        return std::nullopt;
    return std::filesystem::path(window->chosenPath().toStdU16String());
}

} // namespace pixmo::qt
