#pragma once

#include <cstdint>

namespace pixmo {

class ViewSurface {
public:
    virtual ~ViewSurface() = default;
    virtual void repaint() = 0;
    virtual int32_t width() const = 0;
    virtual int32_t height() const = 0;
    virtual double devicePixelRatio() const = 0;
    virtual void setPointer(int32_t pointer) = 0;
};

} // namespace pixmo
