#pragma once

#include <cstdint>

namespace pixmo {

/// Codes of the mouse pointers that the viewer asks for.
enum class Pointer : int32_t {
    Default = 0,
    Cross = 2,
    ArrowHourglass = 13,
    SizeAll = 15, ///< move in all directions
    Custom = 99,  ///< the icon set beside it
};

/// Port: the part of a window in which a picture is shown, without scroll bars.
class ViewSurface {
public:
    virtual ~ViewSurface() = default;

    /// The whole view needs painting; painted later, from the event loop.
    virtual void repaint() = 0;
    virtual int32_t width() const = 0;  ///< device pixels
    virtual int32_t height() const = 0; ///< device pixels
    /// Device pixels per 1/96 inch of the user's desktop, above 0.
    virtual double devicePixelRatio() const = 0;
    /// One of the Pointer codes.
    virtual void setPointer(int32_t code) = 0;
};

} // namespace pixmo
