#pragma once

#include <cstdint>
#include <span>

namespace pixmo {

/// What a page needs of a camera's notes.
struct ExifFacts {
    int32_t orientation = 1; ///< 1..8
    double xResolution = 0;  ///< dots per inch; 0 where not given
    double yResolution = 0;  ///< dots per inch; 0 where not given
};

/// Reads the first directory of an Exif block, which starts at its TIFF header. Damage costs facts only.
ExifFacts readExif(std::span<const uint8_t> block);

} // namespace pixmo
