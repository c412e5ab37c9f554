#include "core/control/imageview.h"

#include "core/base/text.h"
#include "core/base/virtualkeys.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

// What the user sees and does: the toolbar, the keyboard, the read-out and the status line.
namespace pixmo {

namespace {

std::string kilobytes(int32_t bytes) {
    return std::to_string((bytes + 512) / 1024) + " KB";
}

} // namespace

void ImageView::rebuildToolbar() {
    diagnostics_.procedure("tlbImage_Init").step([this] {
        commandBar_.tlbImage_Init(properties_.ThumbsAvailable, properties_.BookmarkAvailable);
        commandBar_.press(lvrImage_.dragMode ? "PAN" : "SELECTION");
    });
    commands_.tlbImage_SetStyle();
}

void ImageView::UpdateUI() {
    diagnostics_.procedure("UpdateUI").step([this] {
        if (!mouse_.isDragging())
            showPointer(transfers_.isAnyPending() ? Pointer::ArrowHourglass : Pointer::Default);
        commands_.refreshToolbar();
        thumbnails_.follow();
        InterfaceChanged.raise();
    });
}

void ImageView::showPointer(Pointer pointer) {
    lvrImage_.setPointer(static_cast<int32_t>(pointer));
}

void ImageView::tlbImage_ButtonClick(std::string_view key) {
    const auto self = shared_from_this();
    diagnostics_.procedure("tlbImage_ButtonClick").step([&] {
        if (const ToolButton* button = commandBar_.tlbImage().find(key))
            commands_.tlbImage_ButtonClick(ToolButton(*button));
    });
}

void ImageView::runCommand(std::string_view key) {
    const auto self = shared_from_this();
    if (!diagnostics_.ended())
        commands_.run(key);
}

std::vector<MenuItem> ImageView::tlbImage_MouseDown() const {
    return ports_.container->userMode() ? toolbarMenu(commands_) : std::vector<MenuItem>();
}

std::vector<MenuItem> ImageView::lvrImage_RightClick() const {
    return ports_.container->userMode() ? imageMenu(commands_) : std::vector<MenuItem>();
}

bool ImageView::UserControl_KeyDown(int16_t& keyCode, int16_t& shift) {
    const auto self = shared_from_this();
    bool handled = false;
    if (keyCode == key::Escape)
        mouse_.cancelDrag();
    diagnostics_.procedure("UserControl_KeyDown")
        .step([this] { return ports_.container->userMode() ? Flow::GoOn : Flow::Leave; })
        .step([&] { trace("UserControl_KeyDown " + std::to_string(keyCode) + " " + std::to_string(shift)); })
        .step([&] { handled = commands_.lvwImage_KeyDown(keyCode, shift); })
        .step([&] { events_.KeyDown.raise(keyCode, shift); });
    return handled;
}

std::string ImageView::zoomText() const {
    return isPageDisplayed() ? std::to_string(std::lround(lvrImage_.zoom())) + " %" : std::string();
}

std::string ImageView::viewDescription() const {
    const std::string notice = viewNotice();
    const std::string zoom = zoomText();
    return !notice.empty() ? notice : zoom.empty() ? txtPage() : txtPage() + ", " + zoom;
}

std::string ImageView::txtPage() const {
    return "Page " + std::to_string(session_.state().currentPage) + " of " +
           std::to_string(session_.state().pageCount);
}

bool ImageView::isIdle() const {
    return !printJob_.state().running && !transfers_.isAnyPending() && !session_.tmrDelay().isRunning() &&
           !tmrResizeDelay_->isRunning();
}

bool ImageView::isPageAwaited() const {
    return transfers_.isContacting() || session_.tmrDelay().isRunning() ||
           session_.isPagePending(session_.state().currentPage);
}

std::string ImageView::viewNotice() const {
    const SessionState& session = session_.state();
    if (session.currentDocument == 0 || isPageDisplayed())
        return {};
    if (transfers_.isContacting())
        return "Contacting the server\u2026";
    const std::string page = "Page " + std::to_string(std::max<int16_t>(session.currentPage, 1));
    if (isPageAwaited())
        return "Loading page " + std::to_string(session.currentPage) + "\u2026";
    if (session.currentPage == 0)
        return {};
    return page + " could not be loaded." + (transfers_.problem().empty() ? "" : "\n" + transfers_.problem());
}

std::string ImageView::statusText() const {
    if (transfers_.isContacting())
        return "Contacting the server\u2026";
    if (printJob_.state().running && !printJob_.state().text.empty())
        return withoutBreaks(printJob_.state().text);
    const TransferProgress& progress = transfers_.progress();
    if (!transfers_.isAnyPending())
        return transfers_.problem().empty() ? printJob_.state().text
                                            : "Transfer failed: " + withoutBreaks(transfers_.problem());
    std::string text = "Loading\u2026";
    if (!progress.name.empty() && progress.bytesRead > 0) {
        text = "Loading: " + kilobytes(progress.bytesRead);
        if (progress.bytesMax > 0)
            text += " of " + kilobytes(progress.bytesMax) + " (" + std::to_string(progressPercent()) + " %)";
    }
    return text;
}

int32_t ImageView::progressPercent() const {
    if (printJob_.state().running && printJob_.state().percent >= 0)
        return printJob_.state().percent;
    const TransferProgress& progress = transfers_.progress();
    if (progress.name.empty() || progress.bytesMax <= 0)
        return -1;
    return static_cast<int32_t>(
        std::clamp<int64_t>(int64_t{100} * progress.bytesRead / progress.bytesMax, 0, 100));
}

} // namespace pixmo
