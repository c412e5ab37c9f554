#pragma once

#include "core/control/controlparts.h"
#include "core/control/session.h"
#include "core/thumbs/dlgthumbs.h"

#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace pixmo {

/// The control's side of the thumbnail window: opens it, answers its questions, does what it asks.
class Thumbnails : public ThumbDocument {
public:
    /// `holdControl` keeps the control while it does what the window asks; `canPrint` says whether pages may
    /// be printed.
    Thumbnails(ControlParts& parts, Session& session, const Transfers& transfers,
               std::function<std::shared_ptr<void>()> holdControl, std::function<bool()> canPrint)
        : parts_(parts), session_(session), transfers_(transfers), holdControl_(std::move(holdControl)),
          canPrint_(std::move(canPrint)) {}
    ~Thumbnails() override;
    Thumbnails(const Thumbnails&) = delete;
    Thumbnails& operator=(const Thumbnails&) = delete;

    void ShowThumbNails();
    void close();
    /// Page count, current page or transfers have changed.
    void follow();
    /// nullptr until it was opened.
    dlgThumbs* window() const { return fThumbNails_.get(); }

    Event<const std::vector<int16_t>&> PrintSelection;

private:
    int32_t documentID() const override { return session_.state().currentDocument; }
    int16_t pageCount() const override { return session_.state().pageCount; }
    int16_t currentPage() const override { return session_.state().currentPage; }
    bool isReaderWaiting() const override;
    bool isPagePending(int16_t page) const override { return session_.isPagePending(page); }
    bool isPageCached(int16_t page) const override { return session_.IsPageCached(page); }
    std::string transferProblem() const override { return transfers_.problem(); }
    bool canPrint() const override { return canPrint_(); }
    int32_t loadPage(const std::filesystem::path& file, int32_t encBytes, Raster& raster,
                     std::string& problem) const override;

    void open();
    void fThumbNails_ItemSelected(int16_t page);
    void fThumbNails_LoadThumbImage(int16_t page);

    ControlParts& parts_;
    Session& session_;
    const Transfers& transfers_;
    std::shared_ptr<ViewSurface> surface_;
    std::function<std::shared_ptr<void>()> holdControl_;
    std::function<bool()> canPrint_;
    std::shared_ptr<dlgThumbs> fThumbNails_;
};

} // namespace pixmo
