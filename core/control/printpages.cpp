#include "core/control/printpages.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace pixmo {

namespace {

/// How many pages are fetched at the same time.
constexpr size_t PagesAhead = 4;

/// The whole pixels that a part of a picture touches.
Rectangle outward(const RealRectangle& part) {
    const auto left = static_cast<int32_t>(std::floor(part.left));
    const auto top = static_cast<int32_t>(std::floor(part.top));
    return {left, top, static_cast<int32_t>(std::ceil(part.left + part.width)) - left,
            static_cast<int32_t>(std::ceil(part.top + part.height)) - top};
}

} // namespace

void PrintPages::begin() {
    document_ = uses_.session.state().currentDocument;
    cancelled_ = false;
    view_.reset();
}

void PrintPages::keepView(int16_t page) {
    const bool isShown = uses_.session.isPageDisplayed() && page == uses_.session.state().currentPage;
    view_ =
        isShown ? partOf(uses_.lvrImage.raster(), outward(uses_.lvrImage.rectangles().sourceClip)) : Raster();
}

bool PrintPages::isCurrent() const {
    return !diagnostics_.ended() && uses_.session.state().currentDocument == document_;
}

bool PrintPages::fetch(const std::vector<int16_t>& pages, const std::function<void(size_t)>& fetched) {
    bool all = true;
    for (size_t index = 0; index < pages.size() && all; ++index) {
        fetchAhead(pages, index);
        all = await(pages[index]);
        fetched(index + 1);
    }
    uses_.session.forgetPrintPages();
    return all;
}

void PrintPages::fetchAhead(const std::vector<int16_t>& pages, size_t first) {
    const size_t end = std::min(pages.size(), first + PagesAhead);
    for (size_t index = first; index < end && goOn(); ++index)
        if (!uses_.session.IsPageCached(pages[index]))
            uses_.session.FetchPageForPrinting(pages[index]);
}

bool PrintPages::isAwaited(int16_t page) const {
    return goOn() && !uses_.session.IsPageCached(page) && uses_.session.isPagePending(page);
}

bool PrintPages::await(int16_t page) {
    uses_.eventLoop.pumpUntil([&] { return !isAwaited(page); });
    return goOn() && uses_.session.IsPageCached(page);
}

Raster PrintPages::picture(int16_t page) {
    return view_ ? *view_ : load(page);
}

Raster PrintPages::load(int16_t page) {
    const Session& session = uses_.session;
    if (!session.IsPageCached(page) && isCurrent()) {
        uses_.session.FetchPageForPrinting(page);
        await(page);
    }
    cLeadImageFunctions::Bytes bytes;
    Raster picture;
    const bool loaded = isCurrent() && session.IsPageCached(page) &&
                        uses_.leadImageHelp.imgDecryptToArray(session.state().pages.file(page), bytes,
                                                              uses_.properties.EncBytes) == 0 &&
                        uses_.leadImageHelp.LoadArrayToRaster(bytes, picture) == 0;
    return loaded ? std::move(picture) : Raster();
}

} // namespace pixmo
