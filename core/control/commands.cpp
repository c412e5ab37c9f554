#include "core/control/commands.h"

#include "core/base/text.h"
#include "core/windows/dlgabout.h"
#include "core/windows/dlggotopage.h"
#include "core/windows/dlglog.h"
#include "core/windows/dlgsavepage.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace pixmo {

namespace {

using Facts = CommandFacts;
using Rule = bool (*)(const Facts&);

constexpr Rule Always = [](const Facts&) { return true; };
constexpr Rule PageIsDisplayed = [](const Facts& facts) { return facts.pageDisplayed; };
constexpr Rule PageCanBePrinted = [](const Facts& facts) {
    return facts.pageDisplayed && facts.canPrint && !facts.printing;
};
constexpr Rule HasPages = [](const Facts& facts) { return facts.pageCount >= 1; };

} // namespace

/// The rows of the buttons stand in the order in which a click is compared with them.
struct CommandTable {
    using C = Commands;
    static constexpr std::array<CommandRow, 31> Rows = {{
        {"PAGEPREV", "&Previous Page", [](const Facts& f) { return f.page > 1; }, nullptr, &C::imgPagePrev},
        {"PAGENEXT", "&Next Page", [](const Facts& f) { return f.pageCount >= 1 && f.page < f.pageCount; },
         nullptr, &C::imgPageNext},
        {"PAGEGOTO", "&Go to Page\u2026", [](const Facts& f) { return f.pageCount > 1; }, nullptr,
         &C::imgPageGoto},
        {"PRINT", "P&rint\u2026", PageCanBePrinted, nullptr, &C::imgPrintPages},
        {"QUICKPRINT", "&Quick Print", PageCanBePrinted, nullptr, &C::imgPrintCurrentOnly},
        {"ROTR", "Rotate Ri&ght", PageIsDisplayed, nullptr, &C::rotateRight},
        {"ROTL", "Rotate &Left", PageIsDisplayed, nullptr, &C::rotateLeft},
        {"FITHEIGHT", "Fit &Height", PageIsDisplayed, nullptr, &C::fitHeight},
        {"FITWIDTH", "Fit &Width", PageIsDisplayed, nullptr, &C::fitWidth},
        {"SELECTION", "&Zoom to Selection", PageIsDisplayed,
         [](const C& c) { return !c.parts_.lvrImage.dragMode; }, &C::selectionMode},
        {"PAN", "&Pan", PageIsDisplayed, [](const C& c) { return c.parts_.lvrImage.dragMode; }, &C::panMode},
        {"ZOOM", "Zoom In", PageIsDisplayed, nullptr, &C::zoomAndPan},
        {"CANCEL", "&Cancel Transfer", [](const Facts& f) { return f.transferPending || f.printing; },
         nullptr, &C::cancel},
        {"THUMBS", "&Thumbnails", [](const Facts& f) { return f.pageCount >= 1 && f.canShowThumbs; }, nullptr,
         &C::ShowThumbNails},
        {"STAR", "Book&mark Page", PageIsDisplayed, nullptr, &C::requestBookmark},
        {"FITBEST", "Fit &Best", PageIsDisplayed, nullptr, &C::fitBest},
        {"ZOOMIN", "Zoom &In", PageIsDisplayed, nullptr, &C::zoomIn},
        {"ZOOMOUT", "Zoom &Out", PageIsDisplayed, nullptr, &C::zoomOut},
        {"PAGEFIRST", "&First Page", HasPages, nullptr, &C::imgPageFirst},
        {"PAGELAST", "&Last Page", HasPages, nullptr, &C::imgPageLast},
        {"GRAYSCALE", "Gra&yscale", Always, [](const C& c) { return c.checks.mnuPopupGrayscale; },
         &C::grayScale},
        {"COPY", "&Copy", PageIsDisplayed, nullptr, &C::copyPage},
        {"SAVEPAGE", "&Save Page As\u2026", PageIsDisplayed, nullptr, &C::savePage},
        {"IMAGEINFO", "Ima&ge Information\u2026", Always, nullptr, &C::imageInfo},
        {"ABOUT", "&About\u2026", Always, nullptr, &C::about},
        {"BUTTONCAPTIONS", "Button &Captions", Always,
         [](const C& c) { return c.checks.mnuPopup1ButtonCaptions; }, &C::buttonCaptions},
        {"LARGEBUTTONS", "&Large Buttons", Always, [](const C& c) { return c.checks.mnuPopup1LargeButtons; },
         &C::largeButtons},
        {"SMALLBUTTONS", "&Small Buttons", Always, [](const C& c) { return c.checks.mnuPopup1SmallButtons; },
         &C::smallButtons},
        {"DEBUG", "&Debugging", Always, [](const C& c) { return c.debugShown; }, &C::toggleDebug},
        {"SHOWLOG", "View &Log\u2026", Always, nullptr, &C::showLog},
        {"CLEARDEBUG", "Clear &Debug Pane", Always, nullptr, &C::clearDebug},
    }};
};

Commands::Commands(ControlParts& parts, Session& session, Transfers& transfers, CommandBar& commandBar,
                   DebugTrace& debug)
    : parts_(parts), session_(session), transfers_(transfers), commandBar_(commandBar), debug_(debug) {}

std::span<const CommandRow> Commands::table() {
    return CommandTable::Rows;
}

const CommandRow* Commands::find(std::string_view key) {
    const auto rows = table();
    const auto found =
        std::find_if(rows.begin(), rows.end(), [key](const CommandRow& row) { return row.key == key; });
    return found == rows.end() ? nullptr : &*found;
}

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
    const bool hostDecides = key == "THUMBS" || key == "STAR";
    return !isForbidden(key) && (!hostDecides || commandBar_.tlbImage().find(key));
}

bool Commands::isEnabled(std::string_view key) const {
    const CommandRow* row = find(key);
    return row && !isForbidden(key) && row->enabled(facts());
}

bool Commands::isChecked(std::string_view key) const {
    const CommandRow* row = find(key);
    return row && row->checked && row->checked(*this);
}

void Commands::run(std::string_view key) {
    if (isEnabled(key))
        (this->*find(key)->run)();
}

void Commands::tlbImage_ButtonClick(const ToolButton& button) {
    if (!button.Visible || !button.Enabled)
        return;
    const CommandRow* row = find(button.Key);
    if (row)
        (this->*row->run)();
    else
        parts_.ports.messageBox->ask("WARNING: No message handler for the \"" + button.Key + "\" button!",
                                     Buttons::Ok, Icon::Exclamation, {});
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
    constexpr std::array<std::string_view, 14> keys = {
        "THUMBS",    "PRINT",    "QUICKPRINT", "CANCEL",    "PAGEGOTO", "ROTR",     "ROTL",
        "FITHEIGHT", "FITWIDTH", "PAN",        "SELECTION", "PAGENEXT", "PAGEPREV", "STAR"};
    for (const std::string_view key : keys) {
        if (!cUtilities::ButtonExists(commandBar_.tlbImage(), key))
            continue;
        ToolButton* button = commandBar_.tlbImage().find(key);
        button->Enabled = isEnabled(key);
        button->Visible = !isForbidden(key);
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

void Commands::zoomAndPan() {
    parts_.leadImageHelp.imgZoomIn();
    panMode();
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
