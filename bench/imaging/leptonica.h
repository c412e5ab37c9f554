#pragma once

#include "bench/harness.h"
#include "core/raster/raster.h"
#include "core/raster/rectangle.h"

#include <memory>
#include <vector>

namespace pixmo::bench {

using Page = std::shared_ptr<const Raster>;

/// Leptonica's ways to make a page smaller; those for 1-bit pages give gray.
std::vector<Contender> leptonicaReductions(const Page& page, Size size);
Contender leptonicaQuarterTurn(const Page& page);

} // namespace pixmo::bench
