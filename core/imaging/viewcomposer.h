#pragma once

#include "core/imaging/reducer.h"
#include "core/raster/raster.h"
#include "core/raster/rectangle.h"

#include <cstdint>
#include <vector>

namespace pixmo {

/// What a view looks like apart from its picture.
struct ViewLook {
    BilevelLook bilevel = BilevelLook::ScaleToGray;
    uint32_t background = 0xFF808080; ///< 0xFFRRGGBB

    bool operator==(const ViewLook&) const = default;
};

/// Paints a picture on its background. The last painting is kept, so that after scrolling only what came
/// into sight is drawn anew; the pixels are those of a painting from scratch.
class ViewComposer {
public:
    /// The whole picture (none when nullptr) fills `destination`, surface pixels.
    void compose(const PixelSurface& surface, const Raster* raster, const Rectangle& destination,
                 const ViewLook& look);

    /// The picture is another one.
    void forget();

private:
    bool keeps(const PixelSurface& surface, const Rectangle& destination, const ViewLook& look) const;
    PixelSurface kept();
    void shift(int32_t dx, int32_t dy);
    void refresh(const Raster& raster, const Rectangle& destination);

    std::vector<uint32_t> pixels_;
    Size size_;             ///< of the kept painting; empty without one
    Rectangle destination_; ///< of the picture in the kept painting
    ViewLook look_;
};

} // namespace pixmo
