#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace pixmo {

/// A viewer reads a page answer below this size as text, in bytes.
inline constexpr size_t SmallestPage = 3072;

/// Zero bytes at the end, up to SmallestPage: pictures end before them and decoders ignore them.
void padPage(std::vector<uint8_t>& page);

/// Reverses the order of the leading `count` bytes: -1 or more than there are means all of them, 0 and 1
/// none. The same again restores the page.
void protectPage(std::span<uint8_t> page, int32_t count);

} // namespace pixmo
