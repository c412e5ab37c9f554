#pragma once

#include <memory>

namespace pixmo::qt {

class ImageView;

/// The way from the control, which lives as long as any of its procedures runs, to its widget. The widget
/// cuts it when its end begins.
struct FaceLink {
    ImageView* widget = nullptr; ///< nullptr once the widget ends
};

using SharedFaceLink = std::shared_ptr<FaceLink>;

} // namespace pixmo::qt
