#pragma once

#include <cstdint>
#include <span>

namespace pixmo {

struct TiffSize {
    uint64_t width = 1;
    uint64_t height = 1;
};

/// The size of the first page, read from its directory alone, so that it can be judged before anything is
/// done with it. 1 where the directory does not tell.
TiffSize peekTiffSize(std::span<const uint8_t> bytes);

} // namespace pixmo
