#include "codecs/bmprunlength.h"

#include "codecs/codecerror.h"

#include <algorithm>

namespace pixmo {

namespace {

class RunLengthReader {
public:
    RunLengthReader(std::span<const uint8_t> data, int32_t bits, size_t width, std::span<uint8_t> indices)
        : data_(data), fourBits_(bits == 4), width_(width), height_(indices.size() / width),
          indices_(indices) {}

    void read() {
        while (!complete()) {
            const uint8_t count = next();
            const uint8_t value = next();
            if (count > 0)
                run(count, value);
            else if (value == EndOfPicture)
                return;
            else
                escape(value);
        }
    }

private:
    static constexpr uint8_t EndOfRow = 0;
    static constexpr uint8_t EndOfPicture = 1;
    static constexpr uint8_t Move = 2;

    bool complete() const { return y_ >= height_ || (y_ + 1 == height_ && x_ >= width_); }

    uint8_t next() {
        if (at_ >= data_.size())
            throw pictureError("The BMP picture is cut short after row " + std::to_string(y_) + " of " +
                               std::to_string(height_) + ".");
        return data_[at_++];
    }

    void put(uint32_t index) {
        if (x_ < width_)
            indices_[y_ * width_ + x_] = static_cast<uint8_t>(index);
        ++x_;
    }

    /// The two nibbles of a byte take turns, the high one first.
    uint32_t pixelOf(uint8_t byte, size_t position) const {
        if (!fourBits_)
            return byte;
        return position % 2 == 0 ? byte >> 4 : byte & 15U;
    }

    void run(size_t count, uint8_t value) {
        for (size_t i = 0; i < count; ++i)
            put(pixelOf(value, i));
    }

    void escape(uint8_t code) {
        if (code == EndOfRow) {
            x_ = 0;
            ++y_;
        } else if (code == Move) {
            x_ += next();
            y_ += next();
        } else {
            literal(code);
        }
    }

    void literal(size_t count) {
        const size_t bytes = fourBits_ ? (count + 1) / 2 : count;
        uint8_t byte = 0;
        for (size_t i = 0; i < count; ++i) {
            if (!fourBits_ || i % 2 == 0)
                byte = next();
            put(pixelOf(byte, i));
        }
        if (bytes % 2 != 0 && !complete())
            next();
    }

    std::span<const uint8_t> data_;
    size_t at_ = 0;
    bool fourBits_;
    size_t width_;
    size_t height_;
    size_t x_ = 0;
    size_t y_ = 0;
    std::span<uint8_t> indices_;
};

} // namespace

void decodeRunLengths(std::span<const uint8_t> data, int32_t bits, size_t width, std::span<uint8_t> indices) {
    RunLengthReader(data, bits, width, indices).read();
}

} // namespace pixmo
