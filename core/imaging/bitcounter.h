#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

namespace pixmo {

/// A row of 1-bit pixels each of which counts `weight`.
struct BitRow {
    const uint8_t* bytes = nullptr;
    uint16_t weight = 0;
};

/// Adds bit rows up, column by column, without unpacking them: three rows of one weight are folded into one
/// of that weight and one of twice the weight, so that n rows end as about 2 log n.
class BitCounter {
public:
    explicit BitCounter(size_t bytes) : bytes_(bytes) {}

    void clear();
    /// The bits must live until the next clear().
    void add(const uint8_t* bits);
    /// Appends the rows whose weighted sum is `unit` times the number of ones.
    void appendTo(std::vector<BitRow>& rows, uint32_t unit) const;

private:
    struct Row {
        const uint8_t* bits = nullptr;
        uint8_t* buffer = nullptr; ///< where the bits are if they are an intermediate sum
    };
    /// Rows that count 2^level each; never three.
    struct Level {
        std::array<Row, 2> rows;
        size_t count = 0;
    };

    uint8_t* takeBuffer();
    void giveBack(const Row& row);

    size_t bytes_;
    std::array<Level, 32> levels_{};
    std::vector<std::unique_ptr<uint8_t[]>> buffers_;
    std::vector<uint8_t*> free_;
};

} // namespace pixmo
