#pragma once

#include <cstdint>
#include <vector>

namespace pixmo {

/// One axis of a mapping from source to destination pixels: destination pixel i, counted from the start of
/// the destination rectangle, shows the source interval from edge(i) to edge(i + 1).
struct Axis {
    double start = 0;  ///< source coordinate of the first destination pixel's near edge
    double step = 1;   ///< source pixels a destination pixel, above 0; above 1 the picture gets smaller
    int32_t limit = 0; ///< source pixels of the picture

    bool reduces() const { return step > 1; }
    /// Whether destination pixels are source pixels, one by one.
    bool isIdentity() const;
    double edge(int64_t i) const;
};

/// The source rows that one destination row shows, and how much each of them counts. The weights of rows
/// between the first and the last are all `full`; `lastWeight` is 0 where first and last are one.
struct RowShare {
    int32_t first = 0;
    int32_t last = 0;
    uint32_t firstWeight = 0;
    uint32_t full = 0;
    uint32_t lastWeight = 0;

    uint64_t total() const {
        const auto between = static_cast<uint64_t>(last > first ? last - first - 1 : 0);
        return firstWeight + between * full + lastWeight;
    }
    bool operator==(const RowShare&) const = default;
};

/// Share of destination row i; its weights add up to at most `weight`, but a row counts at least 1.
RowShare rowShare(const Axis& axis, int64_t i, uint32_t weight);

/// A place on the source columns in fixed point. While reducing, a destination pixel lies between two such
/// edges. While enlarging it shows the column `index` with weight `fraction` and the next with the rest of
/// ColumnOne.
struct ColumnMark {
    int32_t index = 0;
    uint32_t fraction = 0;
};
inline constexpr int ColumnBits = 16;
inline constexpr uint32_t ColumnOne = 1U << ColumnBits;

/// `count` + 1 edges (reducing) or `count` pixels (enlarging), from destination pixel `first` on.
std::vector<ColumnMark> columnMarks(const Axis& axis, int64_t first, int32_t count);

} // namespace pixmo
