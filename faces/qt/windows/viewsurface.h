#pragma once

#include "core/platform/viewsurface.h"

#include <QPointer>

namespace pixmo::qt {

class PageView;

/// The viewport of the page view, as long as there is one.
class ViewSurface : public pixmo::ViewSurface {
public:
    explicit ViewSurface(PageView* view);
    ~ViewSurface() override;
    ViewSurface(const ViewSurface&) = delete;
    ViewSurface& operator=(const ViewSurface&) = delete;

    void repaint() override;
    int32_t width() const override;
    int32_t height() const override;
    double devicePixelRatio() const override;
    void setPointer(int32_t code) override;

private:
    QPointer<PageView> view_;
};

} // namespace pixmo::qt
