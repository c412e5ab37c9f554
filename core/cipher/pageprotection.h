#pragma once

#include <cstdint>
#include <span>

namespace pixmo {

/// The protection of page files: reverses the order of the elements from the array's lower bound up to
/// index `encBytes` and leaves the rest. On the one-based arrays of pages that is exactly the first
/// `encBytes` bytes; -1, and an index beyond the end, mean all. Its own inverse.
void reverseProtectedBytes(std::span<uint8_t> page, int32_t encBytes, int32_t lowerBound = 1);

} // namespace pixmo
