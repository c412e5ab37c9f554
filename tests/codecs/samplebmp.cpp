#include "tests/codecs/samplebmp.h"

#include "tests/codecs/pattern.h"

#include <bit>

namespace pixmo {

namespace {

constexpr uint32_t BitFields = 3;

void append(std::vector<uint8_t>& bytes, uint32_t value, size_t length) {
    for (size_t i = 0; i < length; ++i)
        bytes.push_back(i < 4 ? static_cast<uint8_t>(value >> (8 * i)) : uint8_t{0});
}

void appendPixel(std::vector<uint8_t>& row, const BmpSpec& spec, uint32_t x, uint32_t y) {
    if (spec.bits == 24) {
        for (uint32_t channel = 3; channel-- > 0;)
            row.push_back(static_cast<uint8_t>(patternSample(x, y, channel, 8)));
        return;
    }
    uint32_t pixel = 0;
    for (uint32_t channel = 0; channel < 3; ++channel)
        pixel |= bmpMaskedSample(spec.masks[channel], x, y, channel) << std::countr_zero(spec.masks[channel]);
    append(row, pixel, spec.bits / 8);
}

std::vector<uint8_t> packRow(const BmpSpec& spec, uint32_t y) {
    std::vector<uint8_t> row;
    uint32_t held = 0;
    uint32_t heldBits = 0;
    for (uint32_t x = 0; x < spec.width; ++x) {
        if (spec.bits > 8) {
            appendPixel(row, spec, x, y);
            continue;
        }
        held = held << spec.bits | patternSample(x, y, 0, spec.bits);
        heldBits += spec.bits;
        if (heldBits == 8) {
            row.push_back(static_cast<uint8_t>(held));
            heldBits = 0;
        }
    }
    if (heldBits > 0)
        row.push_back(static_cast<uint8_t>(held << (8 - heldBits)));
    row.resize((row.size() + 3) / 4 * 4);
    return row;
}

void appendHeader(std::vector<uint8_t>& bytes, const BmpSpec& spec) {
    append(bytes, spec.headerSize, 4);
    const size_t side = spec.headerSize == 12 ? 2 : 4;
    append(bytes, spec.width, side);
    append(bytes, spec.topDown ? 0U - spec.height : spec.height, side);
    append(bytes, 1, 2);
    append(bytes, spec.bits, 2);
    if (spec.headerSize == 12)
        return;
    append(bytes, spec.compression, 4);
    append(bytes, 0, 4);
    append(bytes, spec.dotsPerMetre, 4);
    append(bytes, spec.dotsPerMetre * 2, 4);
    append(bytes, 0, 8);
    if (spec.compression == BitFields)
        for (const uint32_t mask : spec.masks)
            append(bytes, mask, 4);
    if (bytes.size() < 14 + spec.headerSize)
        bytes.resize(14 + spec.headerSize);
}

} // namespace

uint32_t bmpColour(uint32_t index) {
    return (index * 0x17290BU + 0x32141EU) & 0xFFFFFFU;
}

uint32_t bmpMaskedSample(uint32_t mask, uint32_t x, uint32_t y, uint32_t channel) {
    return patternSample(x, y, channel, static_cast<uint32_t>(std::popcount(mask)));
}

std::vector<uint8_t> wrapBmp(const BmpSpec& spec, const std::vector<uint8_t>& data) {
    std::vector<uint8_t> bytes = {'B', 'M'};
    append(bytes, 0, 12);
    appendHeader(bytes, spec);
    if (spec.bits <= 8)
        for (uint32_t index = 0; index < 1U << spec.bits; ++index)
            append(bytes, bmpColour(index), spec.headerSize == 12 ? 3 : 4);
    for (size_t i = 0; i < 4; ++i)
        bytes[10 + i] = static_cast<uint8_t>(bytes.size() >> (8 * i));
    bytes.insert(bytes.end(), data.begin(), data.end());
    return bytes;
}

std::vector<uint8_t> makeBmp(const BmpSpec& spec) {
    std::vector<uint8_t> data;
    for (uint32_t y = 0; y < spec.height; ++y) {
        const auto row = packRow(spec, spec.topDown ? y : spec.height - 1 - y);
        data.insert(data.end(), row.begin(), row.end());
    }
    return wrapBmp(spec, data);
}

} // namespace pixmo
