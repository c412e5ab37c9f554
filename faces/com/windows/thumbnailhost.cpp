#include "faces/com/windows/thumbnailhost.h"

#include "faces/com/windows/thumbswindow.h"
#include "faces/com/windows/viewsurface.h"

#include <utility>

namespace pixmo::com {

ThumbnailHost::~ThumbnailHost() {
    close();
}

std::shared_ptr<ThumbsWindow> ThumbnailHost::window() {
    if (!window_ || !window_->handle())
        window_ = ThumbsWindow::create(link_->host() ? link_->host()->ownerWindow() : nullptr);
    return window_;
}

std::shared_ptr<pixmo::ViewSurface> ThumbnailHost::surface() {
    const auto made = window();
    auto surface = std::make_shared<ViewSurface>();
    if (made)
        surface->setWindow(made->view());
    return surface;
}

void ThumbnailHost::show(const std::shared_ptr<dlgThumbs>& thumbs) {
    if (const auto shown = window())
        shown->open(thumbs);
}

void ThumbnailHost::close() {
    if (const auto ending = std::exchange(window_, nullptr))
        ending->end();
}

} // namespace pixmo::com
