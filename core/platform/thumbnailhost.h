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
    /// Shows the window, or brings it to the front, and tells it of its size. Not kept beyond close(); held
    /// only while it is called. Tells it by setShown whether it is to be seen.
    virtual void show(const std::shared_ptr<dlgThumbs>& window) = 0;
    /// Saves the window's position and ends it. Nothing happens when there is none.
    virtual void close() = 0;
};

} // namespace pixmo
