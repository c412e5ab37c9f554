#pragma once

#include "core/base/event.h"
#include "core/control/commandbar.h"
#include "core/control/controlparts.h"
#include "core/control/debugtrace.h"
#include "core/control/session.h"
#include "core/control/transfers.h"

#include <cstdint>
#include <functional>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace pixmo {

/// Check marks of the popup menus that stand for the user's settings.
struct MenuChecks {
    bool mnuPopup1ButtonCaptions = false;
    bool mnuPopup1LargeButtons = true;
    bool mnuPopup1SmallButtons = false;
    bool mnuPopupGrayscale = true;
};

/// What decides which commands can be given.
struct CommandFacts {
    bool pageDisplayed = false;
    bool transferPending = false;
    bool printing = false;
    bool canPrint = false;
    bool canShowThumbs = false;
    int16_t page = 0;
    int16_t pageCount = 0;
};

class Commands;

/// One command, by whatever it is given: button, menu item, key or host.
struct CommandRow {
    std::string_view key;
    const char* text; ///< as a menu names it, "&" before its mnemonic
    bool (*enabled)(const CommandFacts&);
    bool (*checked)(const Commands&); ///< nullptr: has no check mark
    void (Commands::*run)();
};

/// All that a user can tell the control to do.
class Commands {
public:
    Commands(ControlParts& parts, Session& session, Transfers& transfers, CommandBar& commandBar,
             DebugTrace& debug);

    static std::span<const CommandRow> table();
    static const CommandRow* find(std::string_view key);

    /// Asked to forbid a command, all ways to give it vanish.
    void setForbidden(std::string_view key, bool forbidden);
    bool isForbidden(std::string_view key) const;
    /// Not forbidden, and its button is there where the host decides on the button.
    bool isOffered(std::string_view key) const;
    bool isEnabled(std::string_view key) const;
    bool isChecked(std::string_view key) const;
    /// Nothing happens while the command is disabled or forbidden.
    void run(std::string_view key);
    void tlbImage_ButtonClick(const ToolButton& button);
    /// The keys that give the command, like "Ctrl+Shift+H"; "" for none.
    static std::string shortcutOf(std::string_view key);
    /// A key of the image area; shift is the sum of 1 Shift, 2 Ctrl, 4 Alt. Whether the key means something.
    bool lvwImage_KeyDown(int16_t keyCode, int16_t shift);
    /// Whether such a key means something, without doing it.
    bool isKey(int16_t keyCode, int16_t shift) const;

    CommandFacts facts() const;
    /// Enables the toolbar's buttons by the facts.
    void refreshToolbar();
    void tlbImage_SetStyle();
    void letGrayScale(bool on);
    void panMode();

    MenuChecks checks;
    bool debugShown = false;
    bool canPrint = false;            ///< whether a printer can be asked for
    std::function<bool()> isPrinting; ///< whether a print job runs
    bool canShowThumbs = false;       ///< whether there is a window for thumbnails
    bool toolbarShown = true;         ///< as the host wants it
    bool menusShown = true;           ///< as the host wants it
    Event<> ToolbarStyleChanged;
    Event<> ThumbnailsRequested;
    Event<bool> PrintRequested; ///< whether the print dialog is to be shown
    Event<> PrintCancelled;     ///< the job that runs is to end

private:
    friend struct CommandTable;
    friend struct KeyTable;

    void imgPagePrev() { turnTo(session_.state().currentPage - 1); }
    void imgPageNext() { turnTo(session_.state().currentPage + 1); }
    void imgPageFirst() { turnTo(1); }
    void imgPageLast() { turnTo(session_.state().pageCount); }
    void imgPageGoto();
    void imgPrintPages() { PrintRequested.raise(true); }
    void imgPrintCurrentOnly() { PrintRequested.raise(false); }
    void rotateRight() { parts_.leadImageHelp.imgRotateRight(); }
    void rotateLeft() { parts_.leadImageHelp.imgRotateLeft(); }
    void fitHeight() { parts_.leadImageHelp.imgFitHeight(); }
    void fitWidth() { parts_.leadImageHelp.imgFitWidth(); }
    void fitBest() { parts_.leadImageHelp.imgFitBest(); }
    void zoomIn() { parts_.leadImageHelp.imgZoomIn(); }
    void zoomOut() { parts_.leadImageHelp.imgZoomOut(); }
    void zoomAndPan();
    void selectionMode();
    void cancel();
    void ShowThumbNails() { ThumbnailsRequested.raise(); }
    void requestBookmark() { session_.requestBookmark(); }
    void grayScale() { letGrayScale(!checks.mnuPopupGrayscale); }
    void copyPage();
    void savePage();
    void imageInfo();
    void about();
    void buttonCaptions();
    void largeButtons() { setLargeButtons(true); }
    void smallButtons() { setLargeButtons(false); }
    void toggleDebug();
    void showLog();
    void clearDebug();

    void turnTo(int32_t page);
    void setLargeButtons(bool large);
    void scrollTo(bool horizontal, bool toEnd);
    void scrollStep(int32_t x, int32_t y);
    void tellDebugging(const char* keys);

    ControlParts& parts_;
    Session& session_;
    Transfers& transfers_;
    CommandBar& commandBar_;
    DebugTrace& debug_;
    std::set<std::string, std::less<>> forbidden_;
};

} // namespace pixmo
