#pragma once

#include "codecs/tifflayout.h"

namespace pixmo {

class TiffFile;

/// The page in the colours that libtiff itself makes of it: for the rare colour spaces and for old-style
/// JPEG. The orientation is left alone. Throws invalid picture, std::bad_alloc.
Raster decodeTiffRgba(TiffFile& file, const TiffLayout& layout, const DecodeLimits& limits);

} // namespace pixmo
