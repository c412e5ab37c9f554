#include "faces/qt/windows/dialogs.h"

#include "core/dialogs/dlggotopage.h"
#include "core/dialogs/dlgsavepage.h"
#include "faces/qt/ports/settingsstore.h"
#include "faces/qt/ports/texts.h"
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
    const QPointer<GotoDialog> window = link_->owner ? new GotoDialog(dialog, link_->owner) : nullptr;
    if (!window || !run(window.data())) {
        dialog.cmdCancel_Click();
        return;
    }
    dialog.setTxtPageNumber(window->number().toStdString());
    dialog.cmdOK_Click();
}

void Dialogs::showModal(dlgAbout& dialog) {
    if (link_->owner)
        run(new AboutDialog(dialog, link_->owner));
}

void Dialogs::showModal(dlgLog& dialog) {
    if (link_->owner)
        run(new LogDialog(dialog, link_->owner));
}

std::optional<std::filesystem::path> Dialogs::askSavePath(const std::string& suggestedName) {
    if (!link_->owner)
        return std::nullopt;
    SettingsStore settings;
    dlgSavePage dialog(suggestedName, settings);
    const QPointer<SavePageDialog> window = new SavePageDialog(dialog, link_->owner);
    if (!run(window.data()))
        return std::nullopt;
    return std::filesystem::path(window->chosenPath().toStdU16String());
}

} // namespace pixmo::qt
