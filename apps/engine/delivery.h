#pragma once

#include <chrono>
#include <cstdint>

namespace pixmo {

/// How a connection ends half-way through an answer.
enum class Cut {
    None,
    Reset, ///< torn down (RST)
    Close, ///< in good order (FIN), too early
};

/// How an answer travels.
struct Delivery {
    std::chrono::milliseconds delay{0}; ///< before its first byte
    bool stall = false;                 ///< it never leaves
    int32_t bytesPerSecond = 0;         ///< of the body; 0 for no limit
    Cut cut = Cut::None;
};

} // namespace pixmo
