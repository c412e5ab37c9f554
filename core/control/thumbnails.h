#pragma once

#include "core/control/diagnostics.h"
#include "core/control/session.h"
#include "core/imaging/cleadimagefunctions.h"
#include "core/platform/settingsstore.h"
#include "core/platform/thumbnailhost.h"
#include "core/platform/timer.h"
#include "core/thumbs/dlgthumbs.h"

#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace pixmo {

/// The control's side of the thumbnail window: opens it, answers its questions, does what it asks.
class Thumbnails : public ThumbDocument {
public:
    /// What it works with beside the session; all of it outlives the thumbnails.
    struct Uses {
        ThumbnailHost* host; ///< nullptr: the face shows no thumbnails
        TimerFactory& timers;
        SettingsStore& settings;
        cLeadImageFunctions& leadImageHelp;
        /// Keeps the control while it does what the window asks.
        std::function<std::shared_ptr<void>()> holdControl;
        /// Whether pages may be printed.
        std::function<bool()> canPrint;
    };
    Thumbnails(Diagnostics& diagnostics, Session& session, const Transfers& transfers, Uses uses)
        : diagnostics_(diagnostics), session_(session), transfers_(transfers), uses_(std::move(uses)) {}
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
    bool canPrint() const override { return uses_.canPrint(); }
    int32_t loadPage(const std::filesystem::path& file, int32_t encBytes, Raster& raster,
                     std::string& problem) const override;

    void open();
    void fThumbNails_ItemSelected(int16_t page);
    void fThumbNails_LoadThumbImage(int16_t page);

    Diagnostics& diagnostics_;
    Session& session_;
    const Transfers& transfers_;
    Uses uses_;
    std::shared_ptr<ViewSurface> surface_;
    std::shared_ptr<dlgThumbs> fThumbNails_;
};

} // namespace pixmo
