#include "core/control/thumbnails.h"

namespace pixmo {

Thumbnails::~Thumbnails() {
    session_.setThumbnailWindow(nullptr);
}

void Thumbnails::ShowThumbNails() {
    diagnostics_.procedure("ShowThumbNails").step([this] {
        if (!fThumbNails_)
            open();
        follow();
        uses_.host->show(fThumbNails_);
    });
}

void Thumbnails::open() {
    surface_ = uses_.host->surface();
    fThumbNails_ = std::make_shared<dlgThumbs>(*this, uses_.timers, uses_.settings, *surface_);
    fThumbNails_->ItemSelected.connect([this](int16_t page) { fThumbNails_ItemSelected(page); });
    fThumbNails_->LoadThumbImage.connect([this](int16_t page) { fThumbNails_LoadThumbImage(page); });
    fThumbNails_->PrintSelection.connect([this](const std::vector<int16_t>& pages) {
        const auto control = uses_.holdControl();
        PrintSelection.raise(pages);
    });
    session_.setThumbnailWindow(fThumbNails_.get());
}

void Thumbnails::close() {
    if (!fThumbNails_)
        return;
    fThumbNails_->SaveSettings();
    uses_.host->close();
    session_.setThumbnailWindow(nullptr);
    fThumbNails_.reset();
}

void Thumbnails::follow() {
    if (fThumbNails_)
        fThumbNails_->documentChanged();
}

bool Thumbnails::isReaderWaiting() const {
    return session_.tmrDelay().isRunning() || isPagePending(session_.state().currentPage);
}

int32_t Thumbnails::loadPage(const std::filesystem::path& file, int32_t encBytes, Raster& raster,
                             std::string& problem) const {
    cLeadImageFunctions::Bytes bytes;
    int32_t status = uses_.leadImageHelp.imgDecryptToArray(file, bytes, encBytes);
    if (status == 0)
        status = uses_.leadImageHelp.LoadArrayToRaster(bytes, raster);
    if (status != 0)
        problem = diagnostics_.errors.Description();
    return status;
}

void Thumbnails::fThumbNails_ItemSelected(int16_t page) {
    const auto control = uses_.holdControl();
    diagnostics_.procedure("fThumbNails_ItemSelected").step([&] {
        int16_t number = page;
        session_.LoadPage(number, false, false);
    });
}

// A page that the view is about to show, or lacks, is never flagged for the thumbnails: its answer belongs to
// the view, and the window finds it in the cache.
void Thumbnails::fThumbNails_LoadThumbImage(int16_t page) {
    const auto control = uses_.holdControl();
    diagnostics_.procedure("fThumbNails_LoadThumbImage").step([&] {
        if (isPagePending(page))
            return;
        int16_t number = page;
        const bool lacking = page == session_.state().currentPage && !session_.isPageDisplayed();
        session_.LoadPage(number, false, !lacking || isPageCached(page));
        if (isPageCached(page))
            session_.takeFromThumbnails(page);
    });
}

} // namespace pixmo
