#pragma once

#include "core/platform/viewsurface.h"
#include "faces/qt/windows/scrolledview.h"

#include <QPointer>

namespace pixmo::qt {

/// The viewport of a view, as long as there is one.
class ViewSurface : public pixmo::ViewSurface {
public:
    explicit ViewSurface(ScrolledView* view) : view_(view) {}

    void repaint() override {
        if (view_)
            view_->viewport()->update();
    }
    int32_t width() const override { return view_ ? view_->deviceSize().width() : 0; }
    int32_t height() const override { return view_ ? view_->deviceSize().height() : 0; }
    double devicePixelRatio() const override { return view_ ? view_->devicePixelRatioF() : 1.0; }
    void setPointer(int32_t code) override {
        if (view_)
            view_->setPointer(code);
    }

private:
    QPointer<ScrolledView> view_;
};

} // namespace pixmo::qt
