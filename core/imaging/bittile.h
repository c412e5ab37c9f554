#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

namespace pixmo {

/// 64 by 64 one-bit pixels; the most significant bit of a row is leftmost.
struct BitTile {
    static constexpr int32_t Side = 64;

    std::array<uint64_t, 64> rows;

    /// Rows become columns.
    void transpose();
};

/// The 64 pixels from byte `at` of a row on, 0 beyond its end.
uint64_t loadBits(std::span<const uint8_t> row, size_t at);

uint64_t reversedBits(uint64_t bits);

} // namespace pixmo
