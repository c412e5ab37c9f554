#include "core/control/dialogcommands.h"

#include "core/windows/dlgabout.h"
#include "core/windows/dlggotopage.h"
#include "core/windows/dlglog.h"
#include "core/windows/dlgsavepage.h"

#include <algorithm>

namespace pixmo {

void DialogCommands::imgPageGoto() {
    dlgGotoPage dialog;
    dialog.setPageNumber(uses_.session.state().currentPage);
    dialog.setPageCount(uses_.session.state().pageCount);
    const int32_t document = uses_.session.state().currentDocument;
    uses_.dialogs.showModal(dialog);
    const int16_t answer = dialog.PageNumber();
    if (answer == 0 || diagnostics_.ended() || uses_.session.state().currentDocument != document)
        return;
    auto page = std::clamp<int16_t>(answer, 1, uses_.session.state().pageCount);
    uses_.session.LoadPage(page, false, false);
}

void DialogCommands::copyPage() {
    diagnostics_.procedure("imgCopyPage").step([this] {
        uses_.clipboard.setPicture(uses_.lvrImage.raster());
    });
}

void DialogCommands::savePage() {
    const int32_t document = uses_.session.state().currentDocument;
    const int16_t page = uses_.session.state().currentPage;
    diagnostics_.procedure("imgSavePage").step([&] {
        dlgSavePage dialog("document " + std::to_string(document) + " page " + std::to_string(page),
                           uses_.settings);
        const auto path = uses_.dialogs.askSavePath(dialog);
        if (path && !diagnostics_.ended() && uses_.session.isPageDisplayed())
            uses_.pageWriter.write(uses_.lvrImage.raster(), *path);
    });
}

void DialogCommands::imageInfo() {
    diagnostics_.procedure("mnuPopupImageInfo_Click").step([this] {
        dlgAbout dialog(&diagnostics_.messageBox, uses_.clipboard);
        dialog.setERRR(diagnostics_.errors);
        dialog.ShowImageInfo(uses_.session.isPageDisplayed() ? &uses_.lvrImage.raster() : nullptr,
                             std::to_string(uses_.session.state().currentDocument));
        uses_.dialogs.showModal(dialog);
    });
}

void DialogCommands::about() {
    diagnostics_.procedure("mnuPopupAbout_Click").step([this] {
        dlgAbout dialog(&diagnostics_.messageBox, uses_.clipboard);
        uses_.dialogs.showModal(dialog);
    });
}

void DialogCommands::showLog() {
    dlgLog dialog(diagnostics_.log.LogPath(), uses_.settings, uses_.clipboard);
    uses_.dialogs.showModal(dialog);
}

} // namespace pixmo
