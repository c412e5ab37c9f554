#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace pixmo {

/// A 1-bit picture as ITU-T T.6, one block without header. Rows of (width + 7) / 8 bytes, most significant
/// bit leftmost, 1 = black. Empty when it cannot be encoded.
std::vector<uint8_t> encodeFax4(std::span<const uint8_t> rows, int32_t width, int32_t height);

} // namespace pixmo
