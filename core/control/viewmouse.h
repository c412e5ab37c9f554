#pragma once

#include "core/base/virtualkeys.h"
#include "core/control/session.h"
#include "core/imaging/cleadimagefunctions.h"
#include "core/imaging/rasterview.h"
#include "core/platform/viewsurface.h"

#include <cstdint>

namespace pixmo {

/// The mouse over the page: drags that pan or draw a rubber band, wheel and gesture. All positions are
/// device pixels of the view. While no page is displayed nothing happens.
class ViewMouse {
public:
    /// `dragEnded` is called when the pointer is let go.
    ViewMouse(RasterView& lvrImage, cLeadImageFunctions& leadImageHelp, const ViewSurface& surface,
              const Session& session, std::function<void()> dragEnded)
        : lvrImage_(lvrImage), leadImageHelp_(leadImageHelp), surface_(surface), session_(session),
          dragEnded_(std::move(dragEnded)) {}

    void lvrImage_MouseDown(int32_t button, double x, double y);
    void lvrImage_MouseMove(double x, double y);
    void lvrImage_MouseUp(double x, double y);
    /// As a face tells it: the end of a drag, and a click when the left button was over the view.
    void release(int32_t button, double x, double y);
    Event<> Clicked;
    /// Ends a drag as if it had not begun to draw: Escape, or the mouse was taken away.
    void cancelDrag();

    /// Notches of the wheel, up and right positive: scrolls, sideways with Shift (1), zooms about the
    /// pointer with Ctrl (2).
    void lvrImage_MouseWheel(double notchesX, double notchesY, int16_t shift, double x, double y);
    /// A touchpad's own distances, device pixels.
    void scrollPixels(double dx, double dy);
    /// A pinch: zooms by the factor about the point, within the bounds of gestures.
    void zoomByGesture(double factor, double x, double y);

    bool isDragging() const { return drag_ != Drag::None; }

private:
    enum class Drag : uint8_t { None, Pan, Select };

    void endDrag();
    void drawBand(double x, double y);

    RasterView& lvrImage_;
    cLeadImageFunctions& leadImageHelp_;
    const ViewSurface& surface_;
    const Session& session_;
    std::function<void()> dragEnded_;
    Drag drag_ = Drag::None;
    double fromX_ = 0;
    double fromY_ = 0;
    int32_t fromScrollX_ = 0;
    int32_t fromScrollY_ = 0;
    double restX_ = 0; ///< parts of pixels that scrolling still owes
    double restY_ = 0;
};

} // namespace pixmo
