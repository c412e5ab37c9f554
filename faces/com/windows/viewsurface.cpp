#include "faces/com/windows/viewsurface.h"

#include "faces/com/windows/dpi.h"
#include "faces/com/windows/pageview.h"

namespace pixmo::com {

void ViewSurface::repaint() {
    if (const auto window = window_.lock(); window && window->handle())
        InvalidateRect(window->handle(), nullptr, FALSE);
}

int32_t ViewSurface::width() const {
    const auto window = window_.lock();
    return window ? window->viewSize().width : 0;
}

int32_t ViewSurface::height() const {
    const auto window = window_.lock();
    return window ? window->viewSize().height : 0;
}

double ViewSurface::devicePixelRatio() const {
    const auto window = window_.lock();
    return static_cast<double>((window ? window->dpi() : dpiOf(nullptr))) / UsualDpi;
}

void ViewSurface::setPointer(int32_t code) {
    if (const auto window = window_.lock())
        window->setPointer(code);
}

} // namespace pixmo::com
