#pragma once

#include <cstddef>
#include <cstdint>

namespace pixmo {

/// Eight bytes as they lie in memory, the first one in front.
inline uint64_t loadWord(const uint8_t* b) {
    return uint64_t{b[0]} << 56U | uint64_t{b[1]} << 48U | uint64_t{b[2]} << 40U | uint64_t{b[3]} << 32U |
           uint64_t{b[4]} << 24U | uint64_t{b[5]} << 16U | uint64_t{b[6]} << 8U | uint64_t{b[7]};
}

inline void storeWord(uint8_t* b, uint64_t bits) {
    for (size_t i = 0; i < 8; ++i)
        b[i] = static_cast<uint8_t>(bits >> (56 - 8 * i));
}

} // namespace pixmo
