#pragma once

#include "core/control/controlparts.h"
#include "core/control/transfers.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

namespace pixmo {

/// The document session: contacts the server, learns the page count, fetches pages, keeps their files and
/// shows them.
class Session {
public:
    /// `letEngineAddress` stores an address as the property of the control.
    Session(ControlParts& parts, std::function<void(const std::string&)> letEngineAddress);

    /// Transfers and session know each other; this closes the ring. Both live as long as the control.
    void setTransfers(Transfers& transfers) { transfers_ = &transfers; }
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
    void forgetPrintPages() { parts_.session.printPages.clear(); }
    /// A page file has come: whether view or thumbnails wait for it.
    bool isPageWanted(int16_t page) const;
    void DisplayPage(int16_t page);
    void Clear();
    void clearCache();
    void requestBookmark();

    /// The tag of the transfer that fetches the page of the current document.
    std::string pageTag(int16_t page) const;
    bool IsPageCached(int16_t page) const { return parts_.session.pages.IsPageCached(page); }
    /// Takes a downloaded page file into the cache.
    void keepPageFile(int16_t page, const std::filesystem::path& file);

private:
    SessionState& state() const { return parts_.session; }
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
    void keepPlace();
    void removePageFiles();
    void emptySession();

    ControlParts& parts_;
    std::function<void(const std::string&)> letEngineAddress_;
    Transfers* transfers_ = nullptr;
    std::unique_ptr<Timer> tmrDelay_;
    int16_t delayedPage_ = 0;
    uint32_t loads_ = 0; ///< loads begun so far: tells a load that waited that a newer one replaced it
};

} // namespace pixmo
