#pragma once

#include "core/base/event.h"
#include "core/imaging/rotation.h"
#include "core/imaging/viewcomposer.h"
#include "core/imaging/viewgeometry.h"
#include "core/platform/viewsurface.h"
#include "core/raster/raster.h"
#include "core/raster/rectangle.h"

#include <cstdint>
#include <optional>

namespace pixmo {

/// What part of the picture is shown where: picture coordinates for the sources, view coordinates (device
/// pixels) for the destinations.
struct ViewRectangles {
    RealRectangle source;          ///< the whole picture
    RealRectangle sourceClip;      ///< the part of it that is shown
    RealRectangle destination;     ///< where the whole picture lies, in whole pixels
    RealRectangle destinationClip; ///< where the part that is shown lies
};

/// Shows one picture, zoomed, scrolled, turned; a face paints what compose() gives and mirrors the scroll
/// bars. All view coordinates are device pixels of the surface: a face that counts otherwise multiplies by
/// the device pixel ratio.
class RasterView {
public:
    /// Zoom, scroll position, size mode or the extent of picture or view changed.
    Event<> Changed;

    /// The surface outlives the view.
    explicit RasterView(ViewSurface& surface);
    RasterView(const RasterView&) = delete;
    RasterView& operator=(const RasterView&) = delete;

    /// A new picture: unturned, from its upper left corner on, in the size mode of the one before.
    void setRaster(Raster raster);
    void clear();
    bool hasPicture() const { return geometry_.hasPicture(); }
    /// As shown, that is turned.
    const Raster& raster() const { return raster_; }
    void rotateRight() { rotate(Turn::Right); }
    void rotateLeft() { rotate(Turn::Left); }
    /// Whether the picture is shown other than it was set.
    bool isTurned() const { return quarterTurns_ % 4 != 0; }

    /// The surface has another size or resolution.
    void resize();
    /// Dots per inch at which 100 percent is the true size; none (the default) means 96 times the surface's
    /// device pixel ratio. Throws invalid property value (380) unless above 0.
    void setSurfaceResolution(std::optional<double> dotsPerInch);

    /// Sizes, places and coordinates; see there.
    const ViewGeometry& geometry() const { return geometry_; }
    SizeMode sizeMode() const { return geometry_.sizeMode(); }
    /// FitWidth, FitBest, or Zoom at the present zoom. Throws invalid property value (380) for others.
    void setSizeMode(SizeMode mode);
    void fitWidth();
    void fitBest();
    void fitHeight();

    float zoom() const { return geometry_.zoom(); } ///< percent
    /// The middle of the view stays. Throws invalid property value (380) unless above 0 and finite.
    void setZoom(float percent);
    /// What is shown at the point stays there, to within a pixel.
    void zoomAt(float percent, double x, double y);
    /// Shows the rectangle as large as fits; one without area is ignored.
    void zoomToRectangle(double left, double top, double width, double height);

    /// Positions beyond the ends mean the ends.
    void scrollTo(int32_t x, int32_t y);
    void scrollBy(int32_t dx, int32_t dy);
    ScrollBar horizontalBar() const { return geometry_.horizontalBar(); }
    ScrollBar verticalBar() const { return geometry_.verticalBar(); }

    /// Size mode, zoom and scroll position, for coming back to a picture.
    ViewPlace place() const { return geometry_.keptPlace(); }
    void goTo(const ViewPlace& place);

    ViewRectangles rectangles() const;
    /// Goes back to a place that rectangles() named, as far as view and picture still allow.
    void setRectangles(const ViewRectangles& rectangles);

    /// The surface is painted anew.
    void repaint();
    /// Off, changes wait with repainting until it is on again. Starts on.
    void setAutoRepaint(bool on);
    /// Off, a 1-bit picture is shown in its two colours only. Starts on.
    bool GrayScale() const { return look_.bilevel == BilevelLook::ScaleToGray; }
    void setGrayScale(bool on);
    uint32_t background() const { return look_.background; }
    /// All of how the view draws its picture, for who draws it elsewhere.
    const ViewLook& look() const { return look_; }
    void setBackground(uint32_t rgb); ///< 0xRRGGBB

    /// State of the mouse that the view keeps for its owner: whether a drag moves the picture (it starts
    /// so) or draws the rubber band, and the band, in view coordinates.
    bool FastPanning = true; ///< no gray while the picture is dragged
    bool dragMode = true;
    bool rubberBandActive = false;
    RealRectangle rubberBand;

    int32_t pointer() const { return pointer_; }
    void setPointer(int32_t code);

    /// Paints what the surface shows: the background and, on it, the picture.
    void compose(const PixelSurface& surface);

private:
    template <typename Change>
    void change(const Change& change);
    void rotate(Turn turn);
    double dotsPerInch() const;

    ViewSurface& surface_;
    Raster raster_;
    ViewGeometry geometry_;
    ViewComposer composer_;
    ViewLook look_;
    std::optional<double> surfaceResolution_;
    int32_t quarterTurns_ = 0;
    bool autoRepaint_ = true;
    bool repaintPending_ = false;
    int32_t pointer_ = static_cast<int32_t>(Pointer::Default);
};

} // namespace pixmo
