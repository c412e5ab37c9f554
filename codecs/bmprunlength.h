#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace pixmo {

/// Decodes the run lengths of a BMP picture of 8 or 4 bits into one index a byte, rows in stored order.
/// `indices` holds width times height zeros; pixels that the picture skips stay so. Throws invalid picture
/// when the data end before the picture does.
void decodeRunLengths(std::span<const uint8_t> data, int32_t bits, size_t width, std::span<uint8_t> indices);

} // namespace pixmo
