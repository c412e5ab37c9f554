#include "faces/com/windows/thumbnailhost.h"

#include "faces/com/windows/dpi.h"
#include "faces/com/windows/thumbswindow.h"

#include <utility>

namespace pixmo::com {

namespace {

/// The area in which the thumbnails are painted, as long as there is one.
class ThumbsSurface : public pixmo::ViewSurface {
public:
    explicit ThumbsSurface(std::weak_ptr<ThumbsView> view) : view_(std::move(view)) {}

    void repaint() override {
        if (const auto view = view_.lock(); view && view->handle())
            InvalidateRect(view->handle(), nullptr, FALSE);
    }
    int32_t width() const override { return size().width; }
    int32_t height() const override { return size().height; }
    double devicePixelRatio() const override {
        const auto view = view_.lock();
        return static_cast<double>(dpiOf(view ? view->handle() : nullptr)) / UsualDpi;
    }
    void setPointer(int32_t) override {}

private:
    Size size() const {
        const auto view = view_.lock();
        return view ? view->viewSize() : Size();
    }

    std::weak_ptr<ThumbsView> view_;
};

} // namespace

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
    return std::make_shared<ThumbsSurface>(made ? made->view() : std::weak_ptr<ThumbsView>());
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
