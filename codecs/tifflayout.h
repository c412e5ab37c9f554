#pragma once

#include "core/imaging/pagedecoder.h"

#include <cstddef>
#include <cstdint>

namespace pixmo {

class TiffFile;

/// How the first page of a TIFF file lies in it.
struct TiffLayout {
    enum class Alpha : uint8_t { None, Straight, Premultiplied };
    /// What the samples of a pixel are; Other is left to the library's own conversion to colours.
    enum class Colours : uint8_t { Indices, Rgb, Inks, Other };

    uint32_t width = 0;
    uint32_t height = 0;
    uint16_t bits = 1;    ///< of a sample
    uint16_t samples = 1; ///< of a pixel, with alpha and unknown ones
    uint16_t compression = 1;
    uint16_t photometric = 0;
    uint16_t orientation = 1;
    Alpha alpha = Alpha::None;
    Colours colours = Colours::Indices;
    bool separate = false; ///< each sample in blocks of its own
    bool tiled = false;
    uint32_t blockWidth = 0;  ///< pixels of a strip or tile
    uint32_t blockHeight = 0; ///< rows of a strip or tile, never more than a strip can have
    size_t blockRowBytes = 0; ///< of one plane where samples are separate

    uint16_t planes() const { return separate ? samples : uint16_t{1}; }
    uint32_t blocksAcross() const { return (width - 1) / blockWidth + 1; }
    uint32_t blocksDown() const { return (height - 1) / blockHeight + 1; }
};

/// Throws invalid picture where the header is absurd, contradicts itself, asks for what is not supported,
/// or asks for more than the limits allow. Sets the file up to hand JPEG data over as RGB.
TiffLayout readTiffLayout(TiffFile& file, const DecodeLimits& limits);

} // namespace pixmo
