#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace pixmo {

/// Copies packed 1-bit pixels to `row` from pixel `x` on, inverted or not. The row's bits from there to the
/// end of the last byte written must be 0 before, and the unused ones are 0 after. The source may be the
/// target itself.
void copyBits(const uint8_t* source, size_t count, uint8_t* row, size_t x, bool invert);

/// Rows lie packed one after the other from `first` on, as a library wrote them: moves each to its own
/// place, `stride` bytes apart, inverting it or not, and clears the unused bits.
void spreadBitRows(uint8_t* first, size_t rows, size_t width, size_t stride, bool invert);

/// Unpacks samples of 1..16 or 32 bits, most significant bit first (16 and 32: in the machine's byte order).
/// Up to 8 bits the values stay as they are; deeper ones become 8 bits.
void unpackSamples(const uint8_t* source, int32_t bits, std::span<uint8_t> samples);

} // namespace pixmo
