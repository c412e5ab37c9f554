#pragma once

#include "core/imaging/axis.h"
#include "core/raster/raster.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace pixmo {

/// The values of some rows of a gray or colour picture as running sums over the columns, channels side by
/// side: what one destination row is made of.
class ToneSums {
public:
    using Sum = uint64_t;
    /// Most that the shares given to build() may weigh in a row, so that a weight fits 16 bits.
    static constexpr uint32_t MaxWeight = 4096;

    /// For the columns from first up to, not including, end, which the picture has. The raster must outlive
    /// this object.
    ToneSums(const Raster& raster, int32_t first, int32_t end);

    void build(const RowShare& share);

    int32_t firstColumn() const { return first_; }
    /// sums()[k * channels + c] is the weighted sum of channel c left of column firstColumn() + k; good up to
    /// one beyond the last column.
    const Sum* sums() const { return sums_.data(); }

private:
    void addRow(int32_t y, uint32_t weight);
    void addFullRows(int32_t begin, int32_t end, uint32_t weight);
    void runningSums();
    const uint8_t* samplesOf(int32_t y) const {
        return raster_.row(y).data() + static_cast<size_t>(first_) * channels_;
    }

    const Raster& raster_;
    size_t channels_;
    int32_t first_;
    size_t samples_;
    std::vector<uint16_t> rowSums_;
    std::vector<uint32_t> values_;
    std::vector<Sum> sums_;
};

} // namespace pixmo
