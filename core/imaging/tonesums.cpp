#include "core/imaging/tonesums.h"

#include <algorithm>
#include <array>

namespace pixmo {

namespace {

/// Rows of bytes that 16 bits can add up.
constexpr int32_t RowsAtOnce = 256;

template <size_t Channels>
void appendSums(const uint32_t* values, size_t count, uint64_t* sums) {
    std::array<uint64_t, Channels> sum{};
    for (size_t i = 0; i < count; i += Channels)
        for (size_t c = 0; c < Channels; ++c)
            sums[i + Channels + c] = sum[c] += values[i + c];
}

} // namespace

ToneSums::ToneSums(const Raster& raster, int32_t first, int32_t end)
    : raster_(raster), channels_(raster.format == PixelFormat::Rgb ? 3 : 1), first_(first),
      samples_(static_cast<size_t>(end - first) * channels_), rowSums_(samples_), values_(samples_),
      sums_(samples_ + 2 * channels_) {}

void ToneSums::build(const RowShare& share) {
    std::fill(values_.begin(), values_.end(), 0U);
    addRow(share.first, share.firstWeight);
    addFullRows(share.first + 1, share.last, share.full);
    if (share.last > share.first)
        addRow(share.last, share.lastWeight);
    runningSums();
}

void ToneSums::addRow(int32_t y, uint32_t weight) {
    const uint8_t* samples = samplesOf(y);
    const auto narrow = static_cast<uint16_t>(weight);
    uint32_t* values = values_.data();
    for (size_t i = 0; i < samples_; ++i)
        values[i] += static_cast<uint32_t>(static_cast<uint16_t>(samples[i])) * narrow;
}

void ToneSums::addFullRows(int32_t begin, int32_t end, uint32_t weight) {
    const auto narrow = static_cast<uint16_t>(weight);
    uint16_t* sums = rowSums_.data();
    uint32_t* values = values_.data();
    for (int32_t y = begin; y < end; y += RowsAtOnce) {
        std::copy_n(samplesOf(y), samples_, sums);
        for (int32_t next = y + 1; next < std::min(end, y + RowsAtOnce); ++next) {
            const uint8_t* samples = samplesOf(next);
            for (size_t i = 0; i < samples_; ++i)
                sums[i] = static_cast<uint16_t>(sums[i] + samples[i]);
        }
        for (size_t i = 0; i < samples_; ++i)
            values[i] += static_cast<uint32_t>(sums[i]) * narrow;
    }
}

void ToneSums::runningSums() {
    const uint32_t* values = values_.data();
    Sum* sums = sums_.data();
    if (channels_ == 1)
        appendSums<1>(values, samples_, sums);
    else
        appendSums<3>(values, samples_, sums);
    std::copy_n(sums + samples_, channels_, sums + samples_ + channels_);
}

} // namespace pixmo
