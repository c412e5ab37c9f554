#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string_view>

namespace pixmo {

/// The state of RC4: a permutation of 0 to 255 and the position in the keystream. Its cells have 32 bits,
/// which spares the inner loop every widening.
class RC4Keystream {
public:
    /// Without a key all cells are 0, and so is the keystream.
    RC4Keystream() = default;
    /// Freshly keyed; the key has at least one byte, and of a long one the first 256 count.
    explicit RC4Keystream(std::string_view key);

    /// Combines the bytes with the next ones of the keystream.
    void apply(std::span<uint8_t> bytes);

private:
    using Cells = std::array<uint32_t, 256>;

    struct Place {
        uint32_t i = 0;
        uint32_t j = 0;
    };

    static uint32_t next(Cells& cells, Place& place);
    static uint64_t nextEight(Cells& cells, Place& place);

    Cells cells_{};
    Place place_;
};

} // namespace pixmo
