#pragma once

#include "core/control/controlevents.h"
#include "core/control/controlinterface.h"
#include "core/control/diagnostics.h"
#include "core/control/pagedisplay.h"
#include "core/control/propertyvalues.h"
#include "core/control/sessionstate.h"
#include "core/control/transfers.h"
#include "core/platform/container.h"
#include "core/platform/eventloop.h"
#include "core/platform/timer.h"
#include "core/protocol/cclienthandlers.h"
#include "core/thumbs/thumbnailwindow.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

namespace pixmo {

/// The document session: contacts the server, learns the page count, fetches pages, keeps their files and
/// shows them.
class Session {
public:
    /// What it works with beside the transfers; all of it outlives the session.
    struct Uses {
        ControlInterface& ui;
        const PropertyValues& properties;
        ControlEvents& events;
        PageDisplay& display;
        EventLoop& eventLoop;
        const Container& container;
        /// Stores an address as the property of the control.
        std::function<void(const std::string&)> letEngineAddress;
    };
    Session(Diagnostics& diagnostics, cClientHandlers& packager2, Transfers& transfers, Uses uses);

    const SessionState& state() const { return state_; }
    /// The view shows the picture of the current page.
    bool isPageDisplayed() const { return uses_.display.shows(state_.currentPage); }
    /// The page of the current document is being fetched.
    bool isPagePending(int16_t page) const { return transfers_.isPending(pageTag(page)); }
    /// Where the pages go that only a thumbnail is wanted of; nullptr: to nobody.
    void setThumbnailWindow(ThumbnailWindow* window) { fThumbNails_ = window; }
    /// The timer of the delayed fetch, whose interval is the property FetchDelay.
    void setDelayTimer(std::unique_ptr<Timer> timer) { tmrDelay_ = std::move(timer); }
    Timer& tmrDelay() const { return *tmrDelay_; }
    void tmrDelay_Timer();

    /// An empty address keeps the engine's. Page 0 means 1, a negative page its absolute value.
    void LoadDocumentByDocID(int32_t docID, int16_t pageNum, const std::string& address);
    /// Waits for the server's answer, or for whatever makes it pointless; false when there is no contact.
    bool DoInitialContact();
    void GetPageCount(int32_t docID);
    /// Corrects the page in place.
    void LoadPage(int16_t& page, bool delayed, bool forThumbnail);
    void FetchPageFromServer(int32_t docID, int16_t page);
    /// Into the cache only: neither the view nor the thumbnails hear of it unless they await the page.
    void FetchPageForPrinting(int16_t page);
    void forgetPrintPages() { state_.printPages.clear(); }
    /// A page file has come: whether view or thumbnails wait for it.
    bool isPageWanted(int16_t page) const;
    void DisplayPage(int16_t page);
    void Clear();
    void clearCache();
    void requestBookmark();

    bool IsPageCached(int16_t page) const { return state_.pages.IsPageCached(page); }
    /// The host's wish alone: nothing is fetched.
    void letCurrentPage(int16_t page) { state_.currentPage = page; }
    /// The page's answer belongs to the view.
    void takeFromThumbnails(int16_t page) { state_.pages.setForThumbnail(page, false); }
    /// The server refuses the page; false where more than a thumbnail was wanted of it.
    bool failThumbnail(int16_t page, const std::string& message);
    /// Takes a downloaded page file into the cache.
    void keepPageFile(int16_t page, const std::filesystem::path& file);

    /// All of the document is forgotten but its files.
    Event<> Emptied;

private:
    TransferTag pageTag(int16_t page) const;
    cClientHandlers::Sender sender() const;
    void FetchWithDelay(int16_t page);
    void requestContact();
    Flow contactServer(uint32_t load);
    Flow contactUnlessMade();
    Flow unlessReplaced(uint32_t load, int32_t docID) const;
    bool isContactOver(uint32_t load) const;
    void requestPageCount(int32_t docID);
    void requestPage(int32_t docID, int16_t page);
    void announcePage(int16_t page);
    void showCurrentPage();
    void removePageFiles();
    void emptySession();

    Diagnostics& diagnostics_;
    cClientHandlers& packager2_;
    Transfers& transfers_;
    Uses uses_;
    SessionState state_;
    ThumbnailWindow* fThumbNails_ = nullptr;
    std::unique_ptr<Timer> tmrDelay_;
    int16_t delayedPage_ = 0;
    uint32_t loads_ = 0; ///< loads begun so far: tells a load that waited that a newer one replaced it
};

} // namespace pixmo
