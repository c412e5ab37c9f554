#include "core/base/text.h"
#include "core/imaging/cleadimagefunctions.h"

#include <algorithm>

// The part of cLeadImageFunctions that carries the user's view commands.
namespace pixmo {

namespace {

constexpr float ZoomStep = 0.1F;
constexpr float SmallestZoomToLeave = 10;

std::array<int32_t, 16> coordinatesOf(const ViewRectangles& rectangles) {
    std::array<int32_t, 16> coordinates{};
    size_t at = 0;
    for (const RealRectangle& r :
         {rectangles.destination, rectangles.destinationClip, rectangles.source, rectangles.sourceClip})
        for (const double value : {r.left, r.top, r.width, r.height})
            coordinates[at++] = roundToLong(value);
    return coordinates;
}

ViewRectangles rectanglesOf(const std::array<int32_t, 16>& c) {
    const auto rectangle = [&c](size_t at) {
        return RealRectangle{0.0 + c[at], 0.0 + c[at + 1], 0.0 + c[at + 2], 0.0 + c[at + 3]};
    };
    ViewRectangles rectangles;
    rectangles.destination = rectangle(0);
    rectangles.destinationClip = rectangle(4);
    rectangles.source = rectangle(8);
    rectangles.sourceClip = rectangle(12);
    return rectangles;
}

} // namespace

int32_t cLeadImageFunctions::imgZoomIn() {
    return errorObject_.attempt("cLeadImageFunctions..imgZoomIn", [&] {
        imageWindow_.setAutoRepaint(true);
        imageWindow_.setZoom(imageWindow_.zoom() + imageWindow_.zoom() * ZoomStep);
    });
}

int32_t cLeadImageFunctions::imgZoomOut() {
    return errorObject_.attempt("cLeadImageFunctions..imgZoomOut", [&] {
        imageWindow_.setAutoRepaint(true);
        imageWindow_.setSizeMode(SizeMode::Zoom);
        const float zoom = imageWindow_.zoom();
        if (zoom > SmallestZoomToLeave)
            imageWindow_.setZoom(zoom - zoom * ZoomStep);
    });
}

int32_t cLeadImageFunctions::imgFitWidth() {
    return errorObject_.attempt("cLeadImageFunctions..imgFitWidth", [&] {
        imageWindow_.setAutoRepaint(true);
        imageWindow_.setSizeMode(SizeMode::FitWidth);
    });
}

int32_t cLeadImageFunctions::imgFitBest() {
    return errorObject_.attempt("cLeadImageFunctions..imgFitBest", [&] {
        imageWindow_.setAutoRepaint(true);
        imageWindow_.setSizeMode(SizeMode::FitBest);
    });
}

int32_t cLeadImageFunctions::imgFitHeight() {
    return errorObject_.attempt("cLeadImageFunctions..imgFitHeight", [&] {
        imageWindow_.setAutoRepaint(true);
        imageWindow_.fitHeight();
    });
}

int32_t cLeadImageFunctions::imgRotateRight() {
    return errorObject_.attempt("cLeadImageFunctions..imgRotateRight", [&] {
        imageWindow_.rotateRight();
        imageWindow_.setAutoRepaint(true);
    });
}

int32_t cLeadImageFunctions::imgRotateLeft() {
    return errorObject_.attempt("cLeadImageFunctions..imgRotateLeft", [&] {
        imageWindow_.rotateLeft();
        imageWindow_.setAutoRepaint(true);
    });
}

int32_t cLeadImageFunctions::imgSelection(ToolButton* button) {
    return errorObject_.attempt("cLeadImageFunctions.imgSelection", [&] {
        if (button)
            button->Pressed = true;
        imageWindow_.dragMode = false;
    });
}

int32_t cLeadImageFunctions::imgPan(ToolButton* button) {
    return errorObject_.attempt("cLeadImageFunctions.imgPan", [&] {
        if (button)
            button->Pressed = true;
        imageWindow_.dragMode = true;
    });
}

int32_t cLeadImageFunctions::SaveCurrentView(const std::string& name) {
    return errorObject_.attempt("cLeadImageFunctions.SaveCurrentView", [&] {
        const SavedView view = {name, coordinatesOf(imageWindow_.rectangles())};
        const auto saved = std::find_if(savedViews_.begin(), savedViews_.end(),
                                        [&](const SavedView& other) { return other.name == name; });
        if (saved == savedViews_.end())
            savedViews_.push_back(view);
        else
            *saved = view;
    });
}

int32_t cLeadImageFunctions::RestoreSavedView(const std::string& name) {
    return errorObject_.attempt("cLeadImageFunctions.RestoreSavedView", [&] {
        if (savedViews_.empty())
            throw Error(error_number::InvalidArgument, "No views have been saved.");
        const auto saved = std::find_if(savedViews_.begin(), savedViews_.end(),
                                        [&](const SavedView& view) { return view.name == name; });
        if (saved == savedViews_.end())
            throw Error(error_number::InvalidArgument, "Could not find a saved view named '" + name + "'");
        imageWindow_.setRectangles(rectanglesOf(saved->coordinates));
    });
}

int32_t cLeadImageFunctions::ResetSavedViews() {
    savedViews_.clear();
    return 0;
}

int32_t cLeadImageFunctions::EventHandler_MouseDown(bool pan, bool select, bool hasMouseIcon) {
    return errorObject_.attempt("cLeadImageFunctions.EventHandler_MouseDown", [&] {
        if (!pan && !select)
            return;
        if (pan && imageWindow_.FastPanning) {
            savedGrayScale_ = imageWindow_.GrayScale();
            dragIsFast_ = true;
            imageWindow_.setGrayScale(false);
        } else if (!pan) {
            imageWindow_.rubberBandActive = true;
        }
        const Pointer own = pan ? Pointer::SizeAll : Pointer::Cross;
        imageWindow_.setPointer(static_cast<int32_t>(hasMouseIcon ? Pointer::Custom : own));
    });
}

int32_t cLeadImageFunctions::EventHandler_MouseUp(bool pan, bool select) {
    return errorObject_.attempt("cLeadImageFunctions.EventHandler_MouseUp", [&] {
        if (pan || select)
            imageWindow_.setPointer(static_cast<int32_t>(Pointer::Default));
        if (pan && dragIsFast_) {
            imageWindow_.setGrayScale(savedGrayScale_);
            dragIsFast_ = false;
        }
    });
}

int32_t cLeadImageFunctions::EventHandler_RubberBand() {
    return errorObject_.attempt("cLeadImageFunctions.EventHandler_RubberBand", [&] {
        imageWindow_.setAutoRepaint(false);
        const RealRectangle band = imageWindow_.rubberBand;
        imageWindow_.rubberBandActive = false;
        imageWindow_.zoomToRectangle(band.left, band.top, band.width, band.height);
        imageWindow_.setAutoRepaint(true);
    });
}

} // namespace pixmo
