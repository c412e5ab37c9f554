#include "faces/com/windows/dialogs.h"

#include "core/dialogs/dlggotopage.h"
#include "faces/com/windows/aboutdialog.h"
#include "faces/com/windows/gotodialog.h"
#include "faces/com/windows/logdialog.h"
#include "faces/com/windows/savepagedialog.h"

namespace pixmo::com {

void Dialogs::showModal(dlgGotoPage& dialog) {
    if (GotoDialog(dialog).run(link_) != IDOK)
        dialog.cmdCancel_Click();
}

void Dialogs::showModal(dlgAbout& dialog) {
    AboutDialog(dialog).run(link_);
}

void Dialogs::showModal(dlgLog& dialog) {
    LogDialog(dialog, *settings_).run(link_);
}

std::optional<std::filesystem::path> Dialogs::askSavePath(const std::string& suggestedName) {
    if (!link_->host())
        return std::nullopt;
    const SharedFaceLink link = link_;
    const ModalScope scope(link);
    dlgSavePage dialog(suggestedName, *settings_);
    return askSavePage(dialog, *link);
}

} // namespace pixmo::com
