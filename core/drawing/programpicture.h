#pragma once

#include <cstdint>
#include <vector>

namespace pixmo {

/// The program's icon, a page with a turned corner: `size` rows of `size` pixels, top to bottom, 0xAARRGGBB
/// with the colours multiplied by alpha.
std::vector<uint32_t> programPicture(int32_t size);

} // namespace pixmo
