#include "core/control/commands.h"

#include "core/base/text.h"
#include "core/windows/dlgabout.h"
#include "core/windows/dlggotopage.h"
#include "core/windows/dlglog.h"
#include "core/windows/dlgsavepage.h"

#include <algorithm>
#include <limits>

namespace pixmo {

Commands::Commands(ControlParts& parts, Session& session, Transfers& transfers, CommandBar& commandBar,
                   DebugTrace& debug)
    : parts_(parts), session_(session), transfers_(transfers), commandBar_(commandBar), debug_(debug) {}

void Commands::setForbidden(std::string_view key, bool forbidden) {
    if (forbidden)
        forbidden_.emplace(key);
    else
        forbidden_.erase(std::string(key));
    refreshToolbar();
}

bool Commands::isForbidden(std::string_view key) const {
    return forbidden_.contains(key) || (key == "SAVEPAGE" && !parts_.ports.container->mayWriteFiles());
}

bool Commands::isOffered(std::string_view key) const {
    const CommandRow* row = findCommand(key);
    const bool hostDecides = row && row->button.presence != Presence::Always;
    return !isForbidden(key) && (!hostDecides || commandBar_.tlbImage().find(key));
}

bool Commands::isEnabled(std::string_view key) const {
    const CommandRow* row = findCommand(key);
    return row && !isForbidden(key) && row->enabled(facts());
}

bool Commands::isChecked(std::string_view key) const {
    const CommandRow* row = findCommand(key);
    return row && row->checked && row->checked(*this);
}

void Commands::run(std::string_view key) {
    if (isEnabled(key))
        findCommand(key)->run(*this);
}

void Commands::tlbImage_ButtonClick(const ToolButton& button) {
    if (!button.Visible || !button.Enabled)
        return;
    const CommandRow* row = findCommand(button.Key);
    if (row)
        row->run(*this);
    else
        parts_.ports.messageBox->ask("WARNING: No message handler for the \"" + button.Key + "\" button!",
                                     Buttons::Ok, Icon::Exclamation, {});
}

void Commands::click(std::string_view key) {
    if (const ToolButton* button = commandBar_.tlbImage().find(key))
        tlbImage_ButtonClick(ToolButton(*button));
}

CommandFacts Commands::facts() const {
    CommandFacts facts;
    facts.pageDisplayed = session_.isPageDisplayed();
    facts.transferPending = transfers_.isAnyPending();
    facts.printing = isPrinting && isPrinting();
    facts.canPrint = canPrint;
    facts.canShowThumbs = canShowThumbs;
    facts.page = session_.state().currentPage;
    facts.pageCount = session_.state().pageCount;
    return facts;
}

void Commands::refreshToolbar() {
    for (const CommandRow* row : buttonRows()) {
        if (!cUtilities::ButtonExists(commandBar_.tlbImage(), row->key))
            continue;
        ToolButton* button = commandBar_.tlbImage().find(row->key);
        button->Enabled = isEnabled(row->key);
        button->Visible = !isForbidden(row->key);
    }
}

void Commands::tlbImage_SetStyle() {
    parts_.procedure("tlbImage_SetStyle")
        .step([this] { commandBar_.setStyle(!checks.mnuPopup1SmallButtons, checks.mnuPopup1ButtonCaptions); })
        .step([this] { ToolbarStyleChanged.raise(); });
}

void Commands::letGrayScale(bool on) {
    checks.mnuPopupGrayscale = on;
    parts_.leadImageHelp.setGrayScale(on);
    parts_.updateUI();
}

void Commands::turnTo(int32_t page) {
    auto number = static_cast<int16_t>(std::clamp<int32_t>(page, 1, std::numeric_limits<int16_t>::max()));
    session_.LoadPage(number, true, false);
}

void Commands::imgPageGoto() {
    dlgGotoPage dialog;
    dialog.setPageNumber(session_.state().currentPage);
    dialog.setPageCount(session_.state().pageCount);
    const int32_t document = session_.state().currentDocument;
    parts_.ports.dialogs->showModal(dialog);
    const int16_t answer = dialog.PageNumber();
    if (answer == 0 || parts_.ended() || session_.state().currentDocument != document)
        return;
    auto page = std::clamp<int16_t>(answer, 1, session_.state().pageCount);
    session_.LoadPage(page, false, false);
}

void Commands::cancel() {
    PrintCancelled.raise();
    transfers_.CancelDownloads();
}

void Commands::panMode() {
    commandBar_.press("PAN");
    parts_.leadImageHelp.imgPan(commandBar_.tlbImage().find("PAN"));
    parts_.updateUI();
}

void Commands::selectionMode() {
    commandBar_.press("SELECTION");
    parts_.leadImageHelp.imgSelection(commandBar_.tlbImage().find("SELECTION"));
    parts_.updateUI();
}

void Commands::copyPage() {
    parts_.procedure("imgCopyPage").step([this] {
        parts_.ports.clipboard->setPicture(parts_.lvrImage.raster());
    });
}

void Commands::savePage() {
    const int32_t document = session_.state().currentDocument;
    const int16_t page = session_.state().currentPage;
    parts_.procedure("imgSavePage").step([&] {
        dlgSavePage dialog("document " + std::to_string(document) + " page " + std::to_string(page),
                           *parts_.ports.settings);
        const auto path = parts_.ports.dialogs->askSavePath(dialog);
        if (path && !parts_.ended() && session_.isPageDisplayed())
            parts_.ports.pageWriter->write(parts_.lvrImage.raster(), *path);
    });
}

void Commands::imageInfo() {
    parts_.procedure("mnuPopupImageInfo_Click").step([this] {
        dlgAbout dialog(parts_.ports.messageBox.get(), *parts_.ports.clipboard);
        dialog.setERRR(parts_.errors);
        dialog.ShowImageInfo(session_.isPageDisplayed() ? &parts_.lvrImage.raster() : nullptr,
                             std::to_string(session_.state().currentDocument));
        parts_.ports.dialogs->showModal(dialog);
    });
}

void Commands::about() {
    parts_.procedure("mnuPopupAbout_Click").step([this] {
        dlgAbout dialog(parts_.ports.messageBox.get(), *parts_.ports.clipboard);
        parts_.ports.dialogs->showModal(dialog);
    });
}

void Commands::buttonCaptions() {
    parts_.procedure("mnuPopup1ButtonCaptions_Click").step([this] {
        checks.mnuPopup1ButtonCaptions = !checks.mnuPopup1ButtonCaptions;
        tlbImage_SetStyle();
    });
}

void Commands::setLargeButtons(bool large) {
    parts_.procedure(large ? "mnuPopup1LargeButtons_Click" : "mnuPopup1SmallButtons_Click").step([&] {
        checks.mnuPopup1LargeButtons = large;
        checks.mnuPopup1SmallButtons = !large;
        tlbImage_SetStyle();
    });
}

void Commands::toggleDebug() {
    debugShown = !debugShown;
    parts_.leadImageHelp.setDebugPrinting(debugShown);
    parts_.updateUI();
}

void Commands::tellDebugging(const char* keys) {
    parts_.ports.messageBox->ask(std::string("Debugging turned ") + (debugShown ? "on." : "off.") +
                                     std::string(LineBreak) + keys + " to view log.",
                                 Buttons::Ok, Icon::None, {});
}

void Commands::showLog() {
    dlgLog dialog(parts_.log.LogPath(), *parts_.ports.settings, *parts_.ports.clipboard);
    parts_.ports.dialogs->showModal(dialog);
}

void Commands::clearDebug() {
    debug_.clear();
    parts_.updateUI();
}

} // namespace pixmo
