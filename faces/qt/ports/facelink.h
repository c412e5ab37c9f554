#pragma once

#include <memory>

class QWidget;

namespace pixmo::qt {

class ImageView;

/// The way from the control, which lives as long as any of its procedures runs, to its widget. The widget
/// cuts it when its end begins: both are nullptr from then on.
struct FaceLink {
    ImageView* widget = nullptr;
    QWidget* owner = nullptr; ///< the same widget, for those who only open a window above it

    /// What a modal window opens over: the widget, or the modal window that stands over it already, which
    /// then gets the keyboard back.
    QWidget* top() const;
};

using SharedFaceLink = std::shared_ptr<FaceLink>;

} // namespace pixmo::qt
