#include "core/control/session.h"

#include "core/base/product.h"
#include "core/base/text.h"
#include "core/control/requestaddress.h"

#include <algorithm>
#include <cstdlib>
#include <limits>
#include <system_error>
#include <utility>

namespace pixmo {

namespace {

const std::string Indent(5, ' ');

std::string blockStart() {
    return std::string(42, 'v');
}

std::string blockEnd() {
    return std::string(42, '^');
}

void checkDocID(int32_t docID, const char* source) {
    if (docID < 1)
        throw Error(error_number::InvalidArgument, "Invalid DocID of '" + std::to_string(docID) + "'.",
                    source);
}

int16_t firstPageOf(int16_t pageNum) {
    if (pageNum == 0)
        return 1;
    return static_cast<int16_t>(
        std::min<int32_t>(std::abs(static_cast<int32_t>(pageNum)), std::numeric_limits<int16_t>::max()));
}

/// A failed class operation is raised again as the error object holds it.
void raiseUnlessDone(int32_t status, const cErrObject& errors) {
    if (status != 0)
        throw Error(errors.Number(), errors.Description(), errors.Source());
}

} // namespace

Session::Session(Diagnostics& diagnostics, cClientHandlers& packager2, Transfers& transfers, Uses uses)
    : diagnostics_(diagnostics), packager2_(packager2), transfers_(transfers), uses_(std::move(uses)) {
    packager2_.InitialContact.connect([this](bool flag) { state_.contacted = flag; });
    packager2_.PageCount.connect([this](int16_t count) { state_.pageCount = count; });
}

cClientHandlers::Sender Session::sender() const {
    const PropertyValues& properties = uses_.properties;
    return {properties.Delimiter, properties.PublicKey, properties.UserLogin, properties.MachineName};
}

void Session::LoadDocumentByDocID(int32_t docID, int16_t pageNum, const std::string& address) {
    const uint32_t load = ++loads_;
    const auto unlessStale = [&, load] { return unlessReplaced(load, docID); };
    diagnostics_.procedure("LoadDocumentByDocID", Buttons::AbortRetryIgnore)
        .step([&] {
            diagnostics_.logLine(std::string(LineBreak) + blockStart());
            diagnostics_.logLine("LoadDocumentByDocID - " + std::to_string(docID));
            diagnostics_.logLine(blockEnd());
        })
        .step([&] { Clear(); })
        .step([&] { return load == loads_ ? Flow::GoOn : Flow::Leave; })
        .step([&] {
            if (!address.empty())
                uses_.letEngineAddress(address);
        })
        .step([&] {
            // A form that is designed shows no document and asks no server.
            return docID == 0 || !uses_.container.userMode() ? Flow::Leave : Flow::GoOn;
        })
        .step([&] {
            state_.currentDocument = docID;
            uses_.ui.UpdateUI();
        })
        .step([&] { return contactUnlessMade(); })
        .step(unlessStale)
        .step([&] { GetPageCount(docID); })
        .step(unlessStale)
        .step([&] {
            // A page chosen while the contact was awaited comes before the one that was asked for.
            int16_t page = state_.currentPage > 0 ? state_.currentPage : firstPageOf(pageNum);
            LoadPage(page, false, false);
        });
}

/// Procedures that waited go on only with the load that they belong to.
Flow Session::unlessReplaced(uint32_t load, int32_t docID) const {
    return load == loads_ && state_.currentDocument == docID ? Flow::GoOn : Flow::Leave;
}

Flow Session::contactUnlessMade() {
    if (state_.contacted)
        return Flow::GoOn;
    // The load that awaits the contact goes on by itself; waiting inside its wait would only delay it.
    if (transfers_.isContacting())
        return Flow::Leave;
    if (DoInitialContact())
        return Flow::GoOn;
    uses_.ui.UpdateUI();
    return Flow::Leave;
}

bool Session::DoInitialContact() {
    const uint32_t load = loads_;
    diagnostics_.procedure("DoInitialContact").step([&] { return contactServer(load); });
    return !diagnostics_.ended() && state_.contacted;
}

bool Session::isContactOver(uint32_t load) const {
    return diagnostics_.ended() || loads_ != load || state_.contacted || !transfers_.isContacting();
}

void Session::requestContact() {
    std::string request;
    std::string tag;
    raiseUnlessDone(packager2_.BuildReqIC(sender(), product::Title, std::to_string(product::Major),
                                          std::to_string(product::Minor), std::to_string(product::Revision),
                                          request, tag),
                    diagnostics_.errors);
    const RequestAddress address = requestAddress(uses_.properties.EngineAddress, request);
    diagnostics_.logLine("Initial Contact Request: " + address.readable);
    transfers_.start(address.target, TransferTag::initialContact(), AsyncType::ByteArray,
                     Transfers::TagIsAdded::BeforeStart);
}

Flow Session::contactServer(uint32_t load) {
    requestContact();
    uses_.eventLoop.pumpUntil([this, load] { return isContactOver(load); });
    if (diagnostics_.ended() || loads_ != load)
        return Flow::Leave;
    if (!state_.contacted) {
        diagnostics_.logLine(Indent + "InitialContact: Cancelled");
        throw Error(error_number::InvalidArgument, "Initial Contact failed or was cancelled.");
    }
    diagnostics_.logLine(Indent + "InitialContact: OK");
    return Flow::GoOn;
}

void Session::GetPageCount(int32_t docID) {
    const uint32_t load = loads_;
    diagnostics_.procedure("GetPageCount")
        .step([&] { checkDocID(docID, "Vellane.Pixmo.GetPageCount"); })
        .step([&] { return contactUnlessMade(); })
        .step([&] { return load == loads_ ? Flow::GoOn : Flow::Leave; })
        .step([&] { requestPageCount(docID); });
}

void Session::requestPageCount(int32_t docID) {
    std::string request;
    std::string tag;
    raiseUnlessDone(packager2_.BuildReqPC(sender(), docID, request, tag), diagnostics_.errors);
    diagnostics_.logLine(std::string(42, '*'));
    diagnostics_.logLine("PageCount Requested for DocID " + std::to_string(docID) + ": ");
    diagnostics_.logLine(Indent + request);
    transfers_.start(requestAddress(uses_.properties.EngineAddress, request).target,
                     TransferTag(tag, uses_.properties.Delimiter), AsyncType::ByteArray,
                     Transfers::TagIsAdded::AfterStart);
}

void Session::LoadPage(int16_t& page, bool delayed, bool forThumbnail) {
    diagnostics_.procedure("LoadPage", Buttons::AbortRetryIgnore)
        .step([&] {
            if (page < 1)
                page = 1;
            if (state_.pageCount > 0 && page > state_.pageCount)
                page = state_.pageCount;
            state_.pages.setForThumbnail(page, forThumbnail);
        })
        .step([&] {
            if (forThumbnail)
                return;
            tmrDelay_->stop();
            state_.printPages.erase(page);
            state_.currentPage = page;
            uses_.ui.UpdateUI();
        })
        .step([&] {
            if (IsPageCached(page)) {
                diagnostics_.logLine("  ->Page was cached @ " + state_.pages.file(page).string());
                DisplayPage(page);
            } else if (delayed) {
                FetchWithDelay(page);
            } else {
                FetchPageFromServer(state_.currentDocument, page);
            }
        });
}

void Session::FetchWithDelay(int16_t page) {
    diagnostics_.procedure("FetchWithDelay").step([&] {
        uses_.ui.showPointer(Pointer::ArrowHourglass);
        tmrDelay_->stop();
        delayedPage_ = page;
        tmrDelay_->start();
    });
}

void Session::tmrDelay_Timer() {
    diagnostics_.procedure("tmrDelay_Timer").step([this] { tmrDelay_->stop(); }).step([this] {
        FetchPageFromServer(state_.currentDocument, delayedPage_);
    });
}

void Session::FetchPageFromServer(int32_t docID, int16_t page) {
    diagnostics_.procedure("FetchPageFromServer", Buttons::AbortRetryIgnore)
        .step([&] { state_.pages.growFlags(page); })
        .step([&] { checkDocID(docID, "Vellane.Pixmo.FetchPageFromServer"); })
        .step([&] { return contactUnlessMade(); })
        .step([&] { return state_.currentDocument == docID ? Flow::GoOn : Flow::Leave; })
        .step([&] { requestPage(docID, page); });
}

void Session::requestPage(int32_t docID, int16_t page) {
    std::string request;
    std::string tag;
    raiseUnlessDone(packager2_.BuildReqGP(sender(), docID, page, request, tag, uses_.properties.NoR != 0),
                    diagnostics_.errors);
    const RequestAddress address = requestAddress(uses_.properties.EngineAddress, request);
    diagnostics_.logLine(std::string(39, '*'));
    diagnostics_.logLine("Fetching Page from Server");
    diagnostics_.logLine(Indent + "Name: " + tag);
    diagnostics_.logLine(Indent + "Reqeust: " + address.readable);
    const TransferTag pageTag(tag, uses_.properties.Delimiter);
    if (!transfers_.isPending(pageTag))
        transfers_.start(address.target, pageTag, AsyncType::File, Transfers::TagIsAdded::AfterStart);
}

void Session::FetchPageForPrinting(int16_t page) {
    if (isPagePending(page))
        return;
    state_.printPages.insert(page);
    FetchPageFromServer(state_.currentDocument, page);
}

bool Session::isPageWanted(int16_t page) const {
    if (state_.pages.isForThumbnail(page))
        return true;
    const bool alreadyShown = uses_.display.hasShown(page) && state_.printPages.contains(page);
    return page == state_.currentPage && !alreadyShown;
}

TransferTag Session::pageTag(int16_t page) const {
    return TransferTag::page(state_.currentDocument, page, uses_.properties.Delimiter);
}

/// A page that only a thumbnail was wanted of costs no more than the thumbnail.
bool Session::failThumbnail(int16_t page, const std::string& message) {
    if (!fThumbNails_ || !state_.pages.isForThumbnail(page))
        return false;
    diagnostics_.logLine(Indent + "Thumbnail of page " + std::to_string(page) + ": " + message);
    fThumbNails_->failThumbnail(page, message);
    return true;
}

void Session::keepPageFile(int16_t page, const std::filesystem::path& file) {
    const std::filesystem::path former = state_.pages.file(page);
    std::error_code ignored;
    if (!former.empty() && former != file)
        std::filesystem::remove(former, ignored);
    state_.pages.setFile(page, file);
}

void Session::DisplayPage(int16_t page) {
    diagnostics_.procedure("DisplayPage", Buttons::AbortRetryIgnore)
        .step([&] {
            if (!state_.pages.isForThumbnail(page))
                return Flow::GoOn;
            if (fThumbNails_)
                fThumbNails_->PostImageToThumbnail(page, state_.pages.file(page), uses_.properties.EncBytes);
            return Flow::Leave;
        })
        .step([&] { announcePage(page); })
        .step([&] { showCurrentPage(); })
        .step([&] { uses_.ui.UpdateUI(); });
}

void Session::announcePage(int16_t page) {
    if (page <= 0)
        return;
    state_.currentPage = page;
    uses_.events.PageChanged.raise(state_.currentDocument, state_.currentPage);
}

// The host may have cleared the session or gone elsewhere while it was told of the page.
void Session::showCurrentPage() {
    const int16_t page = state_.currentPage;
    if (!IsPageCached(page))
        return;
    raiseUnlessDone(uses_.display.show(page, state_.pages.file(page), uses_.properties.EncBytes),
                    diagnostics_.errors);
}

void Session::Clear() {
    diagnostics_.procedure("Clear", Buttons::AbortRetryIgnore)
        .step([this] { emptySession(); })
        .step([this] {
            uses_.events.PageChanged.raise(0, 0);
            // A document that the host loads when it hears of this has cleared everything itself.
            return state_.currentDocument == 0 ? Flow::GoOn : Flow::Leave;
        })
        .step([this] { uses_.display.clear(); })
        .step([this] {
            if (fThumbNails_)
                fThumbNails_->reset();
        })
        .step([this] { transfers_.forgetPending(); })
        .step([this] { clearCache(); })
        .step([this] { uses_.ui.UpdateUI(); });
}

void Session::emptySession() {
    tmrDelay_->stop();
    state_.currentDocument = 0;
    state_.pageCount = 0;
    state_.currentPage = 0;
    uses_.display.forgetPages();
    state_.printPages.clear();
    transfers_.forgetOutcome();
    Emptied.raise();
}

void Session::clearCache() {
    diagnostics_.procedure("Clear", Buttons::AbortRetryIgnore)
        .step([this] { diagnostics_.logLine("Clearing temp files."); })
        .step([this] { removePageFiles(); })
        .step([this] { state_.pages.clear(); });
}

void Session::removePageFiles() {
    PageCache& pages = state_.pages;
    if (!pages.hasFiles())
        diagnostics_.logLine("   -->no cache files to remove!");
    for (int32_t page = 1; page <= pages.highestPage(); ++page) {
        const auto index = static_cast<int16_t>(page);
        if (!pages.IsPageCached(index))
            continue;
        const std::filesystem::path file = pages.file(index);
        diagnostics_.logLine("   -->removing temp file " + file.string());
        std::filesystem::remove(file);
        pages.setFile(index, {});
    }
}

void Session::requestBookmark() {
    diagnostics_.procedure("requestBookmark").step([this] {
        uses_.events.BookmarkRequested.raise(state_.currentDocument, state_.currentPage);
    });
}

} // namespace pixmo
