#include "codecs/bits.h"

#include "codecs/pixelmath.h"

#include <cstring>

namespace pixmo {

namespace {

void invertBytes(const uint8_t* source, size_t count, uint8_t* target) {
    size_t at = 0;
    for (; at + sizeof(uint64_t) <= count; at += sizeof(uint64_t)) {
        uint64_t word = 0;
        std::memcpy(&word, source + at, sizeof word);
        word = ~word;
        std::memcpy(target + at, &word, sizeof word);
    }
    for (; at < count; ++at)
        target[at] = static_cast<uint8_t>(~source[at]);
}

void copyBitsOneByOne(const uint8_t* source, size_t count, uint8_t* row, size_t x, uint32_t flip) {
    for (size_t i = 0; i < count; ++i) {
        const uint32_t bit = (static_cast<uint32_t>(source[i / 8]) >> (7 - i % 8) & 1U) ^ flip;
        const size_t at = x + i;
        row[at / 8] = static_cast<uint8_t>(row[at / 8] | bit << (7 - at % 8));
    }
}

void unpackBits(const uint8_t* source, std::span<uint8_t> samples) {
    for (size_t i = 0; i < samples.size(); ++i)
        samples[i] = static_cast<uint8_t>(source[i / 8] >> (7 - i % 8) & 1);
}

/// Samples of any depth up to 16 bits, one right after the other.
void unpackStream(const uint8_t* source, uint32_t bits, std::span<uint8_t> samples) {
    const uint32_t mask = (1U << bits) - 1;
    const uint32_t surplus = bits > 8 ? bits - 8 : 0;
    uint32_t held = 0;
    uint32_t heldBits = 0;
    for (uint8_t& sample : samples) {
        for (; heldBits < bits; heldBits += 8)
            held = held << 8 | *source++;
        heldBits -= bits;
        sample = static_cast<uint8_t>((held >> heldBits & mask) >> surplus);
    }
}

template <typename Sample>
void unpackWords(const uint8_t* source, std::span<uint8_t> samples) {
    for (uint8_t& sample : samples) {
        Sample value = 0;
        std::memcpy(&value, source, sizeof value);
        source += sizeof value;
        if constexpr (sizeof(Sample) == 2)
            sample = to8Bits(value);
        else
            sample = to8Bits(static_cast<uint32_t>(value) >> 16);
    }
}

} // namespace

void copyBits(const uint8_t* source, size_t count, uint8_t* row, size_t x, bool invert) {
    if (x % 8 != 0) {
        copyBitsOneByOne(source, count, row, x, invert ? 1 : 0);
        return;
    }
    uint8_t* const target = row + x / 8;
    const size_t bytes = (count + 7) / 8;
    if (invert)
        invertBytes(source, bytes, target);
    else if (bytes > 0)
        std::memmove(target, source, bytes);
    if (count % 8 != 0)
        target[bytes - 1] = static_cast<uint8_t>(target[bytes - 1] & 0xFF00U >> (count % 8));
}

void spreadBitRows(uint8_t* first, size_t rows, size_t width, size_t stride, bool invert) {
    const size_t packed = (width + 7) / 8;
    // Last row first: a row's new place never lies before its old one.
    for (size_t y = rows; y-- > 0;) {
        uint8_t* const row = first + y * stride;
        if (stride != packed)
            std::memmove(row, first + y * packed, packed);
        copyBits(row, width, row, 0, invert);
        std::memset(row + packed, 0, stride - packed);
    }
}

void unpackSamples(const uint8_t* source, int32_t bits, std::span<uint8_t> samples) {
    switch (bits) {
    case 1:
        unpackBits(source, samples);
        break;
    case 8:
        if (!samples.empty())
            std::memcpy(samples.data(), source, samples.size());
        break;
    case 16:
        unpackWords<uint16_t>(source, samples);
        break;
    case 32:
        unpackWords<uint32_t>(source, samples);
        break;
    default:
        unpackStream(source, static_cast<uint32_t>(bits), samples);
    }
}

} // namespace pixmo
