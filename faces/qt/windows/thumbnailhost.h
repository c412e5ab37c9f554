#pragma once

#include "core/platform/thumbnailhost.h"
#include "faces/qt/ports/facelink.h"

#include <QPointer>

namespace pixmo::qt {

class ThumbsWindow;

/// Shows the thumbnail window above the window of the widget.
class ThumbnailHost : public pixmo::ThumbnailHost {
public:
    explicit ThumbnailHost(SharedFaceLink link);
    ~ThumbnailHost() override;
    ThumbnailHost(const ThumbnailHost&) = delete;
    ThumbnailHost& operator=(const ThumbnailHost&) = delete;

    std::shared_ptr<pixmo::ViewSurface> surface() override;
    void show(const std::shared_ptr<dlgThumbs>& window) override;
    void close() override;

private:
    ThumbsWindow& window();

    SharedFaceLink link_;
    QPointer<ThumbsWindow> window_;
};

} // namespace pixmo::qt
