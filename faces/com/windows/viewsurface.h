#pragma once

#include "core/platform/viewsurface.h"
#include "faces/com/windows/scrolledview.h"

#include <memory>

namespace pixmo::com {

/// The area of a view, as long as there is one.
class ViewSurface : public pixmo::ViewSurface {
public:
    void setWindow(const std::shared_ptr<ScrolledView>& view) { view_ = view; }

    void repaint() override {
        if (const auto view = view_.lock(); view && view->handle())
            InvalidateRect(view->handle(), nullptr, FALSE);
    }
    int32_t width() const override { return size().width; }
    int32_t height() const override { return size().height; }
    double devicePixelRatio() const override {
        const auto view = view_.lock();
        return view ? view->ratio() : static_cast<double>(dpiOf(nullptr)) / UsualDpi;
    }
    void setPointer(int32_t code) override {
        if (const auto view = view_.lock())
            view->setPointer(code);
    }

private:
    Size size() const {
        const auto view = view_.lock();
        return view ? view->viewSize() : Size();
    }

    std::weak_ptr<ScrolledView> view_;
};

} // namespace pixmo::com
