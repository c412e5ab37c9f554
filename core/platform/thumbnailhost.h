#pragma once

#include "core/platform/viewsurface.h"

#include <memory>

namespace pixmo {

class dlgThumbs;

/// Port: shows the thumbnail window, which stays above the viewer and is not modal.
class ThumbnailHost {
public:
    virtual ~ThumbnailHost() = default;

    /// The area in which the thumbnails are painted; made, hidden, on the first call.
    virtual std::shared_ptr<ViewSurface> surface() = 0;
    /// Shows the window, or brings it to the front. The object outlives the window or close() comes first.
    virtual void show(dlgThumbs& window) = 0;
    virtual void close() = 0;
};

} // namespace pixmo
