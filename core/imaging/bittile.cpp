#include "core/imaging/bittile.h"

#include "core/base/words.h"

#include <algorithm>

namespace pixmo {

namespace {

/// Swaps the off-diagonal quarters of every square of 2 * Distance pixels.
template <size_t Distance>
void swapQuarters(std::array<uint64_t, 64>& rows, uint64_t mask) {
    for (size_t square = 0; square < rows.size(); square += 2 * Distance) {
        for (size_t i = square; i < square + Distance; ++i) {
            const uint64_t differing = (rows[i] ^ (rows[i + Distance] >> Distance)) & mask;
            rows[i] ^= differing;
            rows[i + Distance] ^= differing << Distance;
        }
    }
}

} // namespace

void BitTile::transpose() {
    swapQuarters<32>(rows, 0x00000000FFFFFFFFU);
    swapQuarters<16>(rows, 0x0000FFFF0000FFFFU);
    swapQuarters<8>(rows, 0x00FF00FF00FF00FFU);
    swapQuarters<4>(rows, 0x0F0F0F0F0F0F0F0FU);
    swapQuarters<2>(rows, 0x3333333333333333U);
    swapQuarters<1>(rows, 0x5555555555555555U);
}

uint64_t loadBits(std::span<const uint8_t> row, size_t at) {
    if (at + 8 <= row.size())
        return loadWord(row.data() + at);
    uint64_t bits = 0;
    for (size_t i = at; i < row.size(); ++i)
        bits |= static_cast<uint64_t>(row[i]) << (56 - 8 * (i - at));
    return bits;
}

uint64_t reversedBits(uint64_t bits) {
    bits = (bits >> 1U & 0x5555555555555555U) | (bits & 0x5555555555555555U) << 1U;
    bits = (bits >> 2U & 0x3333333333333333U) | (bits & 0x3333333333333333U) << 2U;
    bits = (bits >> 4U & 0x0F0F0F0F0F0F0F0FU) | (bits & 0x0F0F0F0F0F0F0F0FU) << 4U;
    bits = (bits >> 8U & 0x00FF00FF00FF00FFU) | (bits & 0x00FF00FF00FF00FFU) << 8U;
    bits = (bits >> 16U & 0x0000FFFF0000FFFFU) | (bits & 0x0000FFFF0000FFFFU) << 16U;
    return bits >> 32U | bits << 32U;
}

} // namespace pixmo
