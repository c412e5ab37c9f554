#include "faces/com/windows/dialogs.h"

#include "faces/com/windows/dialogwindow.h"
#include "faces/com/windows/savepagedialog.h"

namespace pixmo::com {

void Dialogs::showModal(Dialog& dialog) {
    const SharedFaceLink link = link_;
    DialogWindow(dialog).run(link);
    if (dialog.isOpen())
        dialog.cancel();
}

std::optional<std::filesystem::path> Dialogs::askSavePath(dlgSavePage& dialog) {
    if (!link_->host())
        return std::nullopt;
    const SharedFaceLink link = link_;
    const ModalScope scope(link);
    return askSavePage(dialog, *link);
}

} // namespace pixmo::com
