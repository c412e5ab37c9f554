#include "core/control/commands.h"

#include "core/base/text.h"

#include <algorithm>
#include <limits>

namespace pixmo {

Commands::Commands(Diagnostics& diagnostics, Session& session, Transfers& transfers, Uses uses)
    : diagnostics_(diagnostics), session_(session), transfers_(transfers), uses_(uses) {}

void Commands::setForbidden(std::string_view key, bool forbidden) {
    if (forbidden)
        forbidden_.emplace(key);
    else
        forbidden_.erase(std::string(key));
    refreshToolbar();
}

bool Commands::isForbidden(std::string_view key) const {
    return forbidden_.contains(key) || (key == "SAVEPAGE" && !uses_.container.mayWriteFiles());
}

bool Commands::isOffered(std::string_view key) const {
    const CommandRow* row = findCommand(key);
    const bool hostDecides = row && row->button.presence != Presence::Always;
    return !isForbidden(key) && (!hostDecides || uses_.commandBar.tlbImage().find(key));
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
        diagnostics_.messageBox.ask("WARNING: No message handler for the \"" + button.Key + "\" button!",
                                    Buttons::Ok, Icon::Exclamation, {});
}

void Commands::click(std::string_view key) {
    if (const ToolButton* button = uses_.commandBar.tlbImage().find(key))
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
        if (!cUtilities::ButtonExists(uses_.commandBar.tlbImage(), row->key))
            continue;
        ToolButton* button = uses_.commandBar.tlbImage().find(row->key);
        button->Enabled = isEnabled(row->key);
        button->Visible = !isForbidden(row->key);
    }
}

void Commands::tlbImage_SetStyle() {
    diagnostics_.procedure("tlbImage_SetStyle")
        .step([this] {
            uses_.commandBar.setStyle(!checks.mnuPopup1SmallButtons, checks.mnuPopup1ButtonCaptions);
        })
        .step([this] { ToolbarStyleChanged.raise(); });
}

void Commands::letGrayScale(bool on) {
    checks.mnuPopupGrayscale = on;
    uses_.leadImageHelp.setGrayScale(on);
    uses_.ui.UpdateUI();
}

void Commands::turnTo(int32_t page) {
    auto number = static_cast<int16_t>(std::clamp<int32_t>(page, 1, std::numeric_limits<int16_t>::max()));
    session_.LoadPage(number, true, false);
}

void Commands::cancel() {
    PrintCancelled.raise();
    transfers_.CancelDownloads();
}

void Commands::panMode() {
    uses_.commandBar.press("PAN");
    uses_.leadImageHelp.imgPan(uses_.commandBar.tlbImage().find("PAN"));
    uses_.ui.UpdateUI();
}

void Commands::selectionMode() {
    uses_.commandBar.press("SELECTION");
    uses_.leadImageHelp.imgSelection(uses_.commandBar.tlbImage().find("SELECTION"));
    uses_.ui.UpdateUI();
}

void Commands::buttonCaptions() {
    diagnostics_.procedure("mnuPopup1ButtonCaptions_Click").step([this] {
        checks.mnuPopup1ButtonCaptions = !checks.mnuPopup1ButtonCaptions;
        tlbImage_SetStyle();
    });
}

void Commands::setLargeButtons(bool large) {
    diagnostics_.procedure(large ? "mnuPopup1LargeButtons_Click" : "mnuPopup1SmallButtons_Click").step([&] {
        checks.mnuPopup1LargeButtons = large;
        checks.mnuPopup1SmallButtons = !large;
        tlbImage_SetStyle();
    });
}

void Commands::toggleDebug() {
    debugShown = !debugShown;
    uses_.leadImageHelp.setDebugPrinting(debugShown);
    uses_.ui.UpdateUI();
}

void Commands::tellDebugging(const char* keys) {
    diagnostics_.messageBox.ask(std::string("Debugging turned ") + (debugShown ? "on." : "off.") +
                                    std::string(LineBreak) + keys + " to view log.",
                                Buttons::Ok, Icon::None, {});
}

void Commands::clearDebug() {
    uses_.debug.clear();
    uses_.ui.UpdateUI();
}

} // namespace pixmo
