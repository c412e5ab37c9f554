#include "core/imaging/axis.h"

#include <algorithm>
#include <cmath>

namespace pixmo {

namespace {

uint32_t rounded(double value) {
    return static_cast<uint32_t>(std::lround(value));
}

/// The interval as whole pixels, both inclusive.
RowShare pixelsBetween(const Axis& axis, double from, double to) {
    RowShare share;
    share.first = std::min(static_cast<int32_t>(from), axis.limit - 1);
    share.last = std::clamp(static_cast<int32_t>(std::ceil(to)) - 1, share.first, axis.limit - 1);
    return share;
}

/// Rows that rounding leaves without weight are not worth a look.
RowShare withoutEmptyEnds(RowShare share) {
    if (share.last > share.first && share.lastWeight == 0) {
        share.last -= 1;
        share.lastWeight = share.last > share.first ? share.full : 0;
    }
    if (share.last > share.first && share.firstWeight == 0) {
        share.first += 1;
        share.firstWeight = share.last > share.first ? share.full : share.lastWeight;
        share.lastWeight = share.last > share.first ? share.lastWeight : 0;
    }
    return share;
}

ColumnMark enlargedPixel(const Axis& axis, int64_t i) {
    const double from = axis.edge(i);
    const double to = axis.edge(i + 1);
    const int32_t index = std::min(static_cast<int32_t>(from), axis.limit - 1);
    const double boundary = index + 1.0;
    if (to <= boundary || index + 1 >= axis.limit)
        return {index, ColumnOne};
    return {index, rounded(ColumnOne * (boundary - from) / (to - from))};
}

} // namespace

bool Axis::isIdentity() const {
    return step == 1 && start == std::floor(start);
}

double Axis::edge(int64_t i) const {
    return std::clamp(start + static_cast<double>(i) * step, 0.0, static_cast<double>(limit));
}

RowShare rowShare(const Axis& axis, int64_t i, uint32_t weight) {
    const double from = axis.edge(i);
    const double to = axis.edge(i + 1);
    RowShare share = pixelsBetween(axis, from, to);
    if (axis.reduces()) {
        share.full = std::max(1U, static_cast<uint32_t>(weight / (axis.step + 2)));
        share.firstWeight = rounded(share.full * (std::min(to, share.first + 1.0) - from));
        if (share.last > share.first)
            share.lastWeight = rounded(share.full * (to - share.last));
    } else {
        share.firstWeight = share.full = weight;
        if (share.last > share.first) {
            share.firstWeight = rounded(weight * (share.first + 1 - from) / (to - from));
            share.lastWeight = weight - share.firstWeight;
        }
    }
    return withoutEmptyEnds(share);
}

std::vector<ColumnMark> columnMarks(const Axis& axis, int64_t first, int32_t count) {
    std::vector<ColumnMark> marks;
    marks.reserve(static_cast<size_t>(count) + 1);
    if (!axis.reduces()) {
        for (int32_t i = 0; i < count; ++i)
            marks.push_back(enlargedPixel(axis, first + i));
        return marks;
    }
    for (int32_t i = 0; i <= count; ++i) {
        const auto fixed = static_cast<uint64_t>(std::llround(axis.edge(first + i) * ColumnOne));
        marks.push_back(
            {static_cast<int32_t>(fixed >> ColumnBits), static_cast<uint32_t>(fixed % ColumnOne)});
    }
    return marks;
}

} // namespace pixmo
