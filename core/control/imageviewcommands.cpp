#include "core/control/imageview.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

// What the user sees and does: the toolbar, the keyboard, the read-out and the status line.
namespace pixmo {

namespace {

namespace key {
constexpr int16_t PageUp = 0x21;
constexpr int16_t PageDown = 0x22;
constexpr int16_t End = 0x23;
constexpr int16_t Home = 0x24;
constexpr int16_t Left = 0x25;
constexpr int16_t Up = 0x26;
constexpr int16_t Right = 0x27;
constexpr int16_t Down = 0x28;
} // namespace key

constexpr double ScrollStep = 30; ///< device-independent pixels

std::string kilobytes(int32_t bytes) {
    return std::to_string((bytes + 512) / 1024) + " KB";
}

} // namespace

void ImageView::rebuildToolbar() {
    parts_.procedure("tlbImage_Init").step([this] {
        commandBar_.tlbImage_Init(parts_.properties.ThumbsAvailable, parts_.properties.BookmarkAvailable);
    });
    tlbImage_SetStyle();
    UpdateUI();
}

void ImageView::tlbImage_SetStyle() {
    parts_.procedure("tlbImage_SetStyle").step([this] {
        commandBar_.setStyle(!checks_.mnuPopup1SmallButtons, checks_.mnuPopup1ButtonCaptions);
    });
}

CommandFacts ImageView::commandFacts() const {
    CommandFacts facts;
    facts.thumbsAvailable = parts_.properties.ThumbsAvailable;
    facts.bookmarkAvailable = parts_.properties.BookmarkAvailable;
    facts.pageDisplayed = isPageDisplayed();
    facts.transferPending = parts_.session.pending.Count() > 0;
    facts.page = parts_.session.currentPage;
    facts.pageCount = parts_.session.pageCount;
    return facts;
}

void ImageView::UpdateUI() {
    parts_.procedure("UpdateUI").step([this] {
        const CommandFacts facts = commandFacts();
        parts_.showPointer(facts.transferPending ? Pointer::ArrowHourglass : Pointer::Default);
        commandBar_.refresh(facts);
        InterfaceChanged.raise();
    });
}

void ImageView::tlbImage_ButtonClick(std::string_view key) {
    const auto self = shared_from_this();
    parts_.procedure("tlbImage_ButtonClick").step([&] {
        const ToolButton* button = commandBar_.tlbImage().find(key);
        if (!button || !button->Visible || !button->Enabled)
            return;
        if (key == "PAGEPREV")
            turnTo(static_cast<int16_t>(parts_.session.currentPage - 1));
        else if (key == "PAGENEXT")
            turnTo(static_cast<int16_t>(parts_.session.currentPage + 1));
        else if (key == "CANCEL")
            transfers_.CancelDownloads();
        else if (key == "STAR")
            requestBookmark();
    });
}

void ImageView::turnTo(int16_t page) {
    session_.LoadPage(page, true, false);
}

void ImageView::UserControl_KeyDown(int16_t& keyCode, int16_t& shift) {
    const auto self = shared_from_this();
    parts_.procedure("UserControl_KeyDown")
        .step([this] { return parts_.ports.container->userMode() ? Flow::GoOn : Flow::Leave; })
        .step([&] { trace("UserControl_KeyDown " + std::to_string(keyCode) + " " + std::to_string(shift)); })
        .step([&] { lvwImage_KeyDown(keyCode, shift); })
        .step([&] { parts_.events.KeyDown.raise(keyCode, shift); });
}

void ImageView::lvwImage_KeyDown(int16_t keyCode, int16_t shift) {
    parts_.procedure("lvwImage_KeyDown").step([&] {
        if (shift != 0)
            return;
        const auto step =
            static_cast<int32_t>(std::lround(ScrollStep * parts_.ports.viewSurface->devicePixelRatio()));
        if (keyCode == key::Up)
            parts_.lvrImage.scrollBy(0, -step);
        else if (keyCode == key::Down)
            parts_.lvrImage.scrollBy(0, step);
        else if (keyCode == key::Left)
            parts_.lvrImage.scrollBy(-step, 0);
        else if (keyCode == key::Right)
            parts_.lvrImage.scrollBy(step, 0);
        else if (keyCode == key::PageUp)
            tlbImage_ButtonClick("PAGEPREV");
        else if (keyCode == key::PageDown)
            tlbImage_ButtonClick("PAGENEXT");
        else if (keyCode == key::Home && parts_.session.currentDocument != 0)
            turnTo(1);
        else if (keyCode == key::End && parts_.session.pageCount > 0)
            turnTo(parts_.session.pageCount);
    });
}

std::string ImageView::txtPage() const {
    return "Page " + std::to_string(parts_.session.currentPage) + " of " +
           std::to_string(parts_.session.pageCount);
}

bool ImageView::isPageDisplayed() const {
    return parts_.session.shownPage != 0 && parts_.session.shownPage == parts_.session.currentPage &&
           parts_.lvrImage.hasPicture();
}

bool ImageView::isIdle() const {
    return parts_.session.pending.Count() == 0 && !session_.tmrDelay().isRunning() &&
           !tmrResizeDelay_->isRunning();
}

bool ImageView::isContacting() const {
    return parts_.session.pending.contains("IC");
}

std::string ImageView::currentTag() const {
    return "GP" + parts_.properties.Delimiter + std::to_string(parts_.session.currentDocument) +
           parts_.properties.Delimiter + std::to_string(parts_.session.currentPage);
}

std::string ImageView::viewNotice() const {
    const SessionState& session = parts_.session;
    if (session.currentDocument == 0 || isPageDisplayed())
        return {};
    if (isContacting())
        return "Contacting the server\u2026";
    const std::string page = "Page " + std::to_string(std::max<int16_t>(session.currentPage, 1));
    if (session.pending.contains(currentTag()) || session_.tmrDelay().isRunning())
        return "Loading page " + std::to_string(session.currentPage) + "\u2026";
    if (session.currentPage == 0)
        return {};
    return page + " could not be loaded." +
           (session.transferProblem.empty() ? "" : "\n" + session.transferProblem);
}

std::string ImageView::statusText() const {
    if (isContacting())
        return "Contacting the server\u2026";
    const TransferProgress& progress = parts_.progress;
    if (parts_.session.pending.Count() == 0)
        return parts_.session.transferProblem.empty() ? std::string()
                                                      : "Transfer failed: " + parts_.session.transferProblem;
    std::string text = "Loading\u2026";
    if (!progress.tag.empty() && progress.bytesRead > 0) {
        text = "Loading: " + kilobytes(progress.bytesRead);
        if (progress.bytesMax > 0)
            text += " of " + kilobytes(progress.bytesMax) + " (" + std::to_string(progressPercent()) + " %)";
    }
    return text;
}

int32_t ImageView::progressPercent() const {
    const TransferProgress& progress = parts_.progress;
    if (progress.tag.empty() || progress.bytesMax <= 0)
        return -1;
    return static_cast<int32_t>(
        std::clamp<int64_t>(int64_t{100} * progress.bytesRead / progress.bytesMax, 0, 100));
}

} // namespace pixmo
