#pragma once

#include "core/base/event.h"
#include "core/control/commandbar.h"
#include "core/control/commandtable.h"
#include "core/control/controlinterface.h"
#include "core/control/debugtrace.h"
#include "core/control/diagnostics.h"
#include "core/control/dialogcommands.h"
#include "core/control/session.h"
#include "core/control/transfers.h"
#include "core/imaging/cleadimagefunctions.h"
#include "core/imaging/rasterview.h"
#include "core/platform/container.h"
#include "core/platform/viewsurface.h"

#include <cstdint>
#include <functional>
#include <set>
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

/// All that a user can tell the control to do.
class Commands {
public:
    /// What they work with beside the session; all of it outlives them.
    struct Uses {
        ControlInterface& ui;
        CommandBar& commandBar;
        DebugTrace& debug;
        RasterView& lvrImage;
        cLeadImageFunctions& leadImageHelp;
        DialogCommands& dialogs;
        const Container& container;
        const ViewSurface& viewSurface;
    };
    Commands(Diagnostics& diagnostics, Session& session, Transfers& transfers, Uses uses);

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
    /// As the button does it, so that a disabled one does nothing.
    void click(std::string_view key);
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

    // What the rows of the table run.
    void turnTo(int32_t page);
    void turnBy(int32_t pages) { turnTo(session_.state().currentPage + pages); }
    void turnToLast() { turnTo(session_.state().pageCount); }
    void selectionMode();
    bool isPanning() const { return uses_.lvrImage.dragMode; }
    void cancel();
    void requestBookmark() { session_.requestBookmark(); }
    void buttonCaptions();
    void setLargeButtons(bool large);
    void toggleDebug();
    void tellDebugging(const char* keys);
    void clearDebug();
    DialogCommands& dialogs() { return uses_.dialogs; }
    /// The view's own commands: zoom, fit, turn.
    cLeadImageFunctions& picture() { return uses_.leadImageHelp; }

private:
    bool isGiven(const CommandRow& row, int16_t keyCode, int16_t shift) const;
    const CommandRow* commandOf(int16_t keyCode, int16_t shift) const;
    void scroll(const ScrollKey& key);

    Diagnostics& diagnostics_;
    Session& session_;
    Transfers& transfers_;
    Uses uses_;
    std::set<std::string, std::less<>> forbidden_;
};

} // namespace pixmo
