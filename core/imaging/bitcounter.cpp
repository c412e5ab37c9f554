#include "core/imaging/bitcounter.h"

namespace pixmo {

namespace {

void addThree(const uint8_t* a, const uint8_t* b, const uint8_t* c, uint8_t* sum, uint8_t* carry,
              size_t bytes) {
    for (size_t i = 0; i < bytes; ++i) {
        const uint8_t x = a[i];
        const uint8_t y = b[i];
        const uint8_t z = c[i];
        const auto either = static_cast<uint8_t>(x ^ y);
        sum[i] = static_cast<uint8_t>(either ^ z);
        carry[i] = static_cast<uint8_t>((x & y) | (either & z));
    }
}

} // namespace

void BitCounter::clear() {
    levels_ = {};
    free_.clear();
    for (const auto& buffer : buffers_)
        free_.push_back(buffer.get());
}

void BitCounter::add(const uint8_t* bits) {
    Row row{bits, nullptr};
    for (Level& level : levels_) {
        if (level.count < 2) {
            level.rows[level.count++] = row;
            return;
        }
        uint8_t* sum = takeBuffer();
        uint8_t* carry = takeBuffer();
        addThree(level.rows[0].bits, level.rows[1].bits, row.bits, sum, carry, bytes_);
        giveBack(level.rows[0]);
        giveBack(level.rows[1]);
        giveBack(row);
        level.rows[0] = {sum, sum};
        level.count = 1;
        row = {carry, carry};
    }
}

void BitCounter::appendTo(std::vector<BitRow>& rows, uint32_t unit) const {
    for (size_t k = 0; k < levels_.size() && levels_[k].count > 0; ++k)
        for (size_t i = 0; i < levels_[k].count; ++i)
            rows.push_back({levels_[k].rows[i].bits, static_cast<uint16_t>(unit << k)});
}

uint8_t* BitCounter::takeBuffer() {
    if (free_.empty()) {
        buffers_.push_back(std::make_unique<uint8_t[]>(bytes_));
        return buffers_.back().get();
    }
    uint8_t* buffer = free_.back();
    free_.pop_back();
    return buffer;
}

void BitCounter::giveBack(const Row& row) {
    if (row.buffer)
        free_.push_back(row.buffer);
}

} // namespace pixmo
