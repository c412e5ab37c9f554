#pragma once

#include "codecs/palette.h"
#include "codecs/tifflayout.h"

#include <optional>
#include <vector>

namespace pixmo {

class TiffFile;

/// Turns stored rows of a TIFF page into rows of its Raster.
class TiffPixels {
public:
    /// For a layout whose colours are not Other. Throws invalid picture when a palette is missing.
    TiffPixels(const TiffFile& file, const TiffLayout& layout);

    PixelFormat format() const;

    /// The two colours of a bilevel page.
    void dress(Raster& raster) const;

    /// Stored rows already have the raster's form, but for the bits' sense and the rows' padding.
    bool isDirect() const;

    /// Brings rows stored one after the other at the raster's row `y` into its form; isDirect() only.
    void settle(Raster& raster, uint32_t y, uint32_t rows) const;

    /// Converts `count` pixels to row `y` from `x` on. One pointer a plane: to all samples of the first
    /// pixel, or, where samples are separate, to each sample's own row.
    void write(const std::vector<const uint8_t*>& planes, size_t count, Raster& raster, uint32_t x,
               uint32_t y);

private:
    void gather(const std::vector<const uint8_t*>& planes, size_t count);
    void writeIndices(size_t count, std::span<uint8_t> row, size_t x);
    void writeColours(size_t count, uint8_t* to) const;
    void writeInks(size_t count, uint8_t* to) const;
    uint8_t blended(uint8_t sample, uint8_t alpha) const;

    TiffLayout layout_;
    std::optional<Palette> palette_;
    std::vector<uint8_t> samples_; ///< of one row, 8 bits each, all of a pixel together
    std::vector<uint8_t> plane_;   ///< one sample of every pixel of a row
};

} // namespace pixmo
