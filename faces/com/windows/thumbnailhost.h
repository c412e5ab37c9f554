#pragma once

#include "core/platform/thumbnailhost.h"
#include "faces/com/base/facelink.h"

#include <memory>

namespace pixmo::com {

class ThumbsWindow;

/// Shows the thumbnail window above the window of the host.
class ThumbnailHost : public pixmo::ThumbnailHost {
public:
    explicit ThumbnailHost(SharedFaceLink link) : link_(std::move(link)) {}
    ~ThumbnailHost() override;
    ThumbnailHost(const ThumbnailHost&) = delete;
    ThumbnailHost& operator=(const ThumbnailHost&) = delete;

    std::shared_ptr<pixmo::ViewSurface> surface() override;
    void show(const std::shared_ptr<dlgThumbs>& thumbs) override;
    void close() override;

private:
    std::shared_ptr<ThumbsWindow> window();

    SharedFaceLink link_;
    std::shared_ptr<ThumbsWindow> window_;
};

} // namespace pixmo::com
