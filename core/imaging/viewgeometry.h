#pragma once

#include "core/imaging/rotation.h"
#include "core/raster/rectangle.h"

#include <cstdint>
#include <optional>

namespace pixmo {

/// How the size of a shown picture is found; the values are stored and exchanged.
enum class SizeMode : int32_t {
    FitWidth = 2, ///< as wide as the view
    FitBest = 3,  ///< as large as fits the view
    Zoom = 4,     ///< by the zoom factor
};

/// What a scroll bar shows, device pixels. There is nothing to scroll where the maximum is 0.
struct ScrollBar {
    int32_t position = 0;
    int32_t maximum = 0;
    int32_t pageStep = 0;
    int32_t lineStep = 0;

    bool operator==(const ScrollBar&) const = default;
};

/// How a picture was looked at: enough to look at it again in the same way, in whatever view.
struct ViewPlace {
    enum class Fit : uint8_t { None, Width, Best, Height };

    Fit fit = Fit::Best;
    float zoom = 100;         ///< percent, used without a fit
    RealPoint middle{0.5, 0}; ///< what was in the middle of the view, as shares of the picture's sides

    bool operator==(const ViewPlace&) const = default;
};

/// Where a picture lies in a view. View coordinates are device pixels from the view's upper left corner;
/// picture coordinates are the picture's pixels. A zoom of 100 percent shows the picture at its true size on
/// a surface of the given resolution, so that unequal resolutions of a picture come out in true proportion.
///
/// The size of the shown picture and its place are whole device pixels: scrolling moves pixels and changes
/// none. A picture smaller than the view is centred, a larger one leaves no gap.
class ViewGeometry {
public:
    bool hasPicture() const { return !picture_.empty(); }
    Size picture() const { return picture_; }
    Size viewport() const { return viewport_; }

    /// Shown from its upper left corner on; the size mode stays. An empty size means no picture.
    void setPicture(Size pixels, double xResolution, double yResolution);
    /// The picture was turned: what was in the middle stays there.
    void turnPicture(Turn turn);
    /// A zoomed view keeps what is in its middle, a fitted one what is in its corner.
    void setViewport(Size devicePixels, double dotsPerInch);

    SizeMode sizeMode() const;
    /// Percent; in the fit modes the one that results, if there is a picture and a view.
    float zoom() const;

    /// What is shown in the view's upper left corner stays there, as far as it may.
    void fitWidth() { fit(Fit::Width); }
    void fitBest() { fit(Fit::Best); }
    /// As high as the view, and so after every change of the view or the picture; its size mode is Zoom.
    void fitHeight() { fit(Fit::Height); }
    /// Percent, above 0 and finite, without upper limit, but the shown picture grows to 2^28 pixels at most.
    /// The picture stays in place at the anchor (view coordinates), as far as it may.
    void setZoom(float percent, RealPoint anchor);
    /// The rectangle (view coordinates) is shown as large as fits, in the middle; one that is empty, or
    /// beyond all zooms, is ignored.
    void zoomToRectangle(const RealRectangle& rectangle);
    /// Zooms and scrolls so that the picture comes to lie there, as far as it may.
    void place(const Rectangle& destination);

    ViewPlace keptPlace() const { return {fit_, zoom_, middleShare()}; }
    void goTo(const ViewPlace& place);

    void scrollTo(int32_t x, int32_t y);
    ScrollBar horizontalBar() const;
    ScrollBar verticalBar() const;

    RealPoint middle() const { return {viewport_.width / 2.0, viewport_.height / 2.0}; }
    /// The whole picture in view coordinates; reaches beyond the view when it is larger.
    Rectangle destination() const;
    /// The part of the view that shows the picture.
    Rectangle visibleDestination() const;
    /// The part of the picture that is shown, in picture coordinates.
    RealRectangle visibleSource() const;
    RealPoint toPicture(RealPoint view) const;
    RealPoint toView(RealPoint picture) const;

    /// The size that the picture would have in another viewport, device pixels.
    Size sizeIn(Size viewport) const;
    /// Which scroll bars a window needs that is so large without them; `bar` is how wide the vertical one is
    /// and how high the horizontal one. Found for the whole window at once: asking again after each bar would
    /// let bars come and go for ever, as a fitted picture shrinks with its viewport.
    struct Bars {
        bool horizontal = false;
        bool vertical = false;
    };
    Bars barsIn(Size window, Size bar) const;

    bool operator==(const ViewGeometry&) const = default;

private:
    using Fit = ViewPlace::Fit;

    void fit(Fit fit);
    double scaleIn(Size viewport) const;
    RealPoint shareAt(RealPoint view) const;
    RealPoint middleShare() const { return middle_.value_or(shareAt(middle())); }
    void putShare(RealPoint share, RealPoint view);
    void putMiddle(RealPoint share);

    Size picture_;
    double xResolution_ = 96;
    double yResolution_ = 96;
    Size viewport_;
    double dotsPerInch_ = 96;
    Fit fit_ = Fit::Best;
    float zoom_ = 100; ///< percent, without a fit
    Size size_;        ///< of the shown picture
    int32_t scrollX_ = 0;
    int32_t scrollY_ = 0;
    /// What is to be in the middle, while nobody scrolls: the place of whole pixels is beside it by up to
    /// half a pixel, which would add up from one size of the view to the next.
    std::optional<RealPoint> middle_;
};

} // namespace pixmo
