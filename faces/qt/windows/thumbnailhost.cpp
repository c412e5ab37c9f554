#include "faces/qt/windows/thumbnailhost.h"

#include "faces/qt/windows/thumbsview.h"
#include "faces/qt/windows/thumbswindow.h"
#include "faces/qt/windows/viewsurface.h"

#include <utility>

namespace pixmo::qt {

ThumbnailHost::ThumbnailHost(SharedFaceLink link) : link_(std::move(link)) {}

ThumbnailHost::~ThumbnailHost() {
    close();
}

ThumbsWindow& ThumbnailHost::window() {
    if (!window_)
        window_ = new ThumbsWindow(link_->owner);
    return *window_;
}

std::shared_ptr<pixmo::ViewSurface> ThumbnailHost::surface() {
    return std::make_shared<ViewSurface>(&window().view());
}

void ThumbnailHost::show(const std::shared_ptr<dlgThumbs>& thumbs) {
    window().open(thumbs);
}

// The end of the control may come from inside an event of the window.
void ThumbnailHost::close() {
    if (!window_)
        return;
    ThumbsWindow* const ending = std::exchange(window_, nullptr);
    ending->end();
    ending->setParent(nullptr);
    ending->deleteLater();
}

} // namespace pixmo::qt
