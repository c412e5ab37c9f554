#pragma once

#include "core/platform/viewsurface.h"

#include <QPointer>
#include <QWidget>

namespace pixmo::qt {

/// The area in which a widget paints, as long as there is one.
class ThumbsSurface : public pixmo::ViewSurface {
public:
    explicit ThumbsSurface(QWidget* area) : area_(area) {}

    void repaint() override {
        if (area_)
            area_->update();
    }
    int32_t width() const override { return area_ ? device(area_->width()) : 0; }
    int32_t height() const override { return area_ ? device(area_->height()) : 0; }
    double devicePixelRatio() const override { return area_ ? area_->devicePixelRatioF() : 1.0; }
    void setPointer(int32_t) override {}

private:
    int32_t device(int length) const { return qRound(length * area_->devicePixelRatioF()); }

    QPointer<QWidget> area_;
};

} // namespace pixmo::qt
