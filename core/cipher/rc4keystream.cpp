#include "core/cipher/rc4keystream.h"

#include "core/base/words.h"

#include <cstddef>
#include <numeric>
#include <utility>

namespace pixmo {

namespace {

constexpr size_t Eight = 8;

constexpr uint32_t lowByte(uint32_t value) {
    return value & 0xFFU;
}

} // namespace

RC4Keystream::RC4Keystream(std::string_view key) {
    std::iota(cells_.begin(), cells_.end(), 0U);
    uint32_t j = 0;
    size_t at = 0;
    for (uint32_t& cell : cells_) {
        j = lowByte(j + cell + static_cast<unsigned char>(key[at]));
        std::swap(cell, cells_[j]);
        at = at + 1 == key.size() ? 0 : at + 1;
    }
}

inline uint32_t RC4Keystream::next(Cells& cells, Place& place) {
    place.i = lowByte(place.i + 1);
    const uint32_t a = cells[place.i];
    place.j = lowByte(place.j + a);
    const uint32_t b = cells[place.j];
    cells[place.i] = b;
    cells[place.j] = a;
    return cells[lowByte(a + b)];
}

/// Eight bytes, the first one highest; the next cell is the first of eight in a row. Each cell of the row is
/// read ahead, before the swap that precedes its turn is written, and again in the rare case that this swap
/// changes it: a branch seldom taken leaves the chain of dependent steps shorter.
inline uint64_t RC4Keystream::nextEight(Cells& cells, Place& place) {
    const uint32_t first = lowByte(place.i + 1);
    uint32_t* row = &cells[first];
    uint32_t j = place.j;
    uint64_t stream = 0;
    uint32_t a = row[0];
#pragma GCC unroll 8
    for (uint32_t k = 0; k < Eight; ++k) {
        j = lowByte(j + a);
        const uint32_t b = cells[j];
        uint32_t ahead = k + 1 < Eight ? row[k + 1] : 0;
        row[k] = b;
        cells[j] = a;
        if (j == first + k + 1) [[unlikely]]
            ahead = row[k + 1];
        stream |= static_cast<uint64_t>(cells[lowByte(a + b)]) << (56 - 8 * k);
        a = ahead;
    }
    place = {lowByte(place.i + Eight), j};
    return stream;
}

void RC4Keystream::apply(std::span<uint8_t> bytes) {
    // Copies of its own tell the compiler that writing bytes leaves the state alone.
    Cells cells = cells_;
    Place place = place_;
    uint8_t* at = bytes.data();
    size_t left = bytes.size();
    for (; left > 0 && (place.i + 1) % Eight != 0; --left)
        *at++ ^= static_cast<uint8_t>(next(cells, place));
    for (; left >= Eight; left -= Eight, at += Eight)
        storeWord(at, loadWord(at) ^ nextEight(cells, place));
    for (; left > 0; --left)
        *at++ ^= static_cast<uint8_t>(next(cells, place));
    cells_ = cells;
    place_ = place;
}

} // namespace pixmo
