#include "core/imaging/bilevelsums.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>
#include <functional>
#include <utility>

namespace pixmo {

namespace {

/// Bytes looked at together when ink is searched for.
constexpr size_t Chunk = 8;

using ByteCounts = std::array<uint16_t, 8>;

/// For each byte the number of ones in its leading 1, 2, ... 8 bits.
constexpr std::array<ByteCounts, 256> leadingOnes() {
    std::array<ByteCounts, 256> table{};
    for (unsigned byte = 0; byte < 256; ++byte)
        for (unsigned i = 0; i < 8; ++i)
            table[byte][i] = static_cast<uint16_t>(std::popcount(byte >> (7 - i)));
    return table;
}
constexpr std::array<ByteCounts, 256> LeadingOnes = leadingOnes();

/// Replaces (or, to `Add`, raises) the counts of the columns by those of the bit rows N...
/// The loop over the eight columns of a byte becomes one step on vectors as long as nobody unrolls it.
template <bool Add, size_t... N>
void countColumns(const BitRow* rows, size_t begin, size_t end, uint16_t* columns,
                  std::index_sequence<N...>) {
    const std::array<const uint8_t*, sizeof...(N)> bytes{rows[N].bytes...};
    const std::array<uint16_t, sizeof...(N)> weights{rows[N].weight...};
    for (size_t byte = begin; byte < end; ++byte) {
        uint16_t* cell = columns + byte * 8;
        const std::array<const uint16_t*, sizeof...(N)> ones{LeadingOnes[bytes[N][byte]].data()...};
        ByteCounts sum;
#pragma GCC unroll 1
        for (size_t i = 0; i < 8; ++i)
            sum[i] = static_cast<uint16_t>((... + static_cast<uint16_t>(ones[N][i] * weights[N])) +
                                           (Add ? cell[i] : 0));
        std::memcpy(cell, sum.data(), sizeof sum);
    }
}

template <bool Add, size_t N>
void countColumns(const BitRow* rows, size_t begin, size_t end, uint16_t* columns) {
    countColumns<Add>(rows, begin, end, columns, std::make_index_sequence<N>());
}

void orInto(uint8_t* into, const uint8_t* bytes, size_t count) {
    for (size_t i = 0; i < count; ++i)
        into[i] = static_cast<uint8_t>(into[i] | bytes[i]);
}

/// Running sums of `columns` columns (a multiple of 8), from `sum` on; the last one is the result.
uint32_t appendColumns(const uint16_t* inByte, size_t columns, uint32_t sum, uint32_t* sums) {
    for (size_t at = 0; at < columns; at += 8) {
        std::array<uint32_t, 8> eight;
#pragma GCC unroll 1
        for (size_t i = 0; i < 8; ++i)
            eight[i] = sum + inByte[at + i];
        std::memcpy(sums + at, eight.data(), sizeof eight);
        sum += inByte[at + 7];
    }
    return sum;
}

} // namespace

BilevelSums::BilevelSums(const Raster& raster, Columns columns)
    : raster_(raster), firstByte_(static_cast<size_t>(columns.begin / 8)),
      bytes_(static_cast<size_t>((columns.end + 7) / 8) - firstByte_), counter_(bytes_),
      anyInk_((bytes_ + Chunk - 1) / Chunk * Chunk), inByte_(bytes_ * 8), sums_(bytes_ * 8 + 2) {}

void BilevelSums::build(const RowShare& share) {
    if (share.total() > MaxWeight) {
        buildInParts(share);
        return;
    }
    gatherRows(share);
    findInk();
    for (const Columns& run : inked_)
        addBitRows(static_cast<size_t>(run.begin - firstColumn()) / 8,
                   static_cast<size_t>(run.end - firstColumn()) / 8);
    runningSums();
}

/// A share of so many rows weighs 1 a row.
void BilevelSums::buildInParts(RowShare share) {
    std::vector<Sum> total(sums_.size());
    const int32_t last = share.last;
    const uint32_t lastWeight = share.lastWeight;
    while (share.first <= last) {
        share.last = std::min(last, share.first + static_cast<int32_t>(MaxWeight) - 1);
        share.lastWeight = share.last == share.first ? 0 : share.last == last ? lastWeight : share.full;
        build(share);
        std::transform(total.begin(), total.end(), sums_.begin(), total.begin(), std::plus<>());
        share.first = share.last + 1;
        share.firstWeight = share.first == last ? lastWeight : share.full;
    }
    sums_ = total;
    inked_.assign(1, {firstColumn(), firstColumn() + static_cast<int32_t>(bytes_ * 8)});
}

void BilevelSums::gatherRows(const RowShare& share) {
    rows_.clear();
    counter_.clear();
    if (share.firstWeight != share.full)
        rows_.push_back({bytesOf(share.first), static_cast<uint16_t>(share.firstWeight)});
    for (int32_t y = share.first + (share.firstWeight != share.full); y < share.last; ++y)
        counter_.add(bytesOf(y));
    if (share.last > share.first && share.lastWeight != share.full)
        rows_.push_back({bytesOf(share.last), static_cast<uint16_t>(share.lastWeight)});
    else if (share.last > share.first || share.firstWeight == share.full)
        counter_.add(bytesOf(share.last));
    counter_.appendTo(rows_, share.full);
}

void BilevelSums::findInk() {
    uint8_t* any = anyInk_.data();
    std::copy_n(rows_[0].bytes, bytes_, any);
    for (size_t n = 1; n < rows_.size(); ++n)
        orInto(any, rows_[n].bytes, bytes_);
    inked_.clear();
    for (size_t i = 0; i < anyInk_.size(); i += Chunk) {
        uint64_t ink = 0;
        std::memcpy(&ink, any + i, Chunk);
        if (ink == 0)
            continue;
        const auto begin = firstColumn() + static_cast<int32_t>(i * 8);
        const auto end = firstColumn() + static_cast<int32_t>(std::min(i + Chunk, bytes_) * 8);
        if (!inked_.empty() && inked_.back().end == begin)
            inked_.back().end = end;
        else
            inked_.push_back({begin, end});
    }
}

void BilevelSums::addBitRows(size_t begin, size_t end) {
    uint16_t* columns = inByte_.data();
    size_t done = 0;
    switch (std::min<size_t>(rows_.size(), 4)) {
    case 1:
        countColumns<false, 1>(rows_.data(), begin, end, columns);
        return;
    case 2:
        countColumns<false, 2>(rows_.data(), begin, end, columns);
        return;
    case 3:
        countColumns<false, 3>(rows_.data(), begin, end, columns);
        return;
    default:
        countColumns<false, 4>(rows_.data(), begin, end, columns);
        done = 4;
    }
    for (; done + 2 <= rows_.size(); done += 2)
        countColumns<true, 2>(rows_.data() + done, begin, end, columns);
    if (done < rows_.size())
        countColumns<true, 1>(rows_.data() + done, begin, end, columns);
}

void BilevelSums::runningSums() {
    Sum sum = 0;
    size_t at = 0;
    for (const Columns& run : inked_) {
        const auto begin = static_cast<size_t>(run.begin - firstColumn());
        const auto end = static_cast<size_t>(run.end - firstColumn());
        std::fill(sums_.begin() + static_cast<ptrdiff_t>(at),
                  sums_.begin() + static_cast<ptrdiff_t>(begin) + 1, sum);
        sum = appendColumns(inByte_.data() + begin, end - begin, sum, sums_.data() + begin + 1);
        at = end + 1;
    }
    std::fill(sums_.begin() + static_cast<ptrdiff_t>(at), sums_.end(), sum);
}

} // namespace pixmo
