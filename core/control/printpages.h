#pragma once

#include "core/control/diagnostics.h"
#include "core/control/session.h"
#include "core/imaging/cleadimagefunctions.h"
#include "core/imaging/rasterview.h"
#include "core/platform/eventloop.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

namespace pixmo {

/// The pages that are printed, of one document: fetched where they are not there yet, and decoded.
class PrintPages {
public:
    /// What it works with; all of it outlives it.
    struct Uses {
        Session& session;
        EventLoop& eventLoop;
        const PropertyValues& properties;
        const RasterView& lvrImage;
        cLeadImageFunctions& leadImageHelp;
    };
    PrintPages(Diagnostics& diagnostics, Uses uses) : diagnostics_(diagnostics), uses_(uses) {}

    /// The document that the control shows now is the one that is printed.
    void begin();
    /// Instead of `page` that part of it is printed which the view shows now; nothing can be where the view
    /// shows another.
    void keepView(int16_t page);
    void forgetView() { view_.reset(); }
    /// The view's place under the name "SavedView".
    void saveView() { uses_.leadImageHelp.SaveCurrentView("SavedView"); }
    int32_t document() const { return document_; }
    /// The document is still the control's.
    bool isCurrent() const;
    void cancel() { cancelled_ = true; }
    bool isCancelled() const { return cancelled_; }
    /// The document is still the control's, and the user wants it.
    bool goOn() const { return isCurrent() && !cancelled_; }

    /// Returns when all pages are there, or one of them will not be, which is false. `fetched` hears how many
    /// were dealt with.
    bool fetch(const std::vector<int16_t>& pages, const std::function<void(size_t)>& fetched);
    /// Empty where the page cannot be had.
    Raster picture(int16_t page);
    /// Lets events be handled between pages.
    void handlePending() { uses_.eventLoop.handlePending(); }

private:
    void fetchAhead(const std::vector<int16_t>& pages, size_t first);
    bool await(int16_t page);
    bool isAwaited(int16_t page) const;
    Raster load(int16_t page);

    Diagnostics& diagnostics_;
    Uses uses_;
    int32_t document_ = 0;
    bool cancelled_ = false;
    /// What the view showed when the job was given, where only that is printed. Empty: it showed another
    /// page.
    std::optional<Raster> view_;
};

} // namespace pixmo
