#pragma once

#include "core/platform/viewsurface.h"

#include <memory>

namespace pixmo::com {

class PageView;

/// The area of the page window, as long as there is one.
class ViewSurface : public pixmo::ViewSurface {
public:
    void setWindow(const std::shared_ptr<PageView>& window) { window_ = window; }

    void repaint() override;
    int32_t width() const override;
    int32_t height() const override;
    double devicePixelRatio() const override;
    void setPointer(int32_t code) override;

private:
    std::weak_ptr<PageView> window_;
};

} // namespace pixmo::com
