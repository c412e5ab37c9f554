#include "faces/qt/windows/viewsurface.h"

#include "faces/qt/windows/pageview.h"

namespace pixmo::qt {

ViewSurface::ViewSurface(PageView* view) : view_(view) {}

ViewSurface::~ViewSurface() = default;

void ViewSurface::repaint() {
    if (view_)
        view_->viewport()->update();
}

int32_t ViewSurface::width() const {
    return view_ ? view_->deviceSize().width() : 0;
}

int32_t ViewSurface::height() const {
    return view_ ? view_->deviceSize().height() : 0;
}

double ViewSurface::devicePixelRatio() const {
    return view_ ? view_->devicePixelRatioF() : 1.0;
}

void ViewSurface::setPointer(int32_t code) {
    if (view_)
        view_->setPointer(code);
}

} // namespace pixmo::qt
