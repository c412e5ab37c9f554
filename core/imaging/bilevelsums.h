#pragma once

#include "core/imaging/axis.h"
#include "core/imaging/bitcounter.h"
#include "core/raster/raster.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace pixmo {

/// The ink of some rows of a 1-bit picture as running sums over the columns: what one destination row is
/// made of. Only columns near ink are looked at closely.
class BilevelSums {
public:
    using Sum = uint32_t; ///< wraps around; differences within 2^32 are right
    /// Most that the shares given to build() may weigh together, so that eight columns fit 16 bits.
    static constexpr uint32_t MaxWeight = 8191;

    struct Columns {
        int32_t begin = 0;
        int32_t end = 0; ///< first one outside
    };

    /// For the given columns, which the picture has. The raster must outlive this object.
    BilevelSums(const Raster& raster, Columns columns);

    void build(const RowShare& share);

    /// A multiple of 8: the column in which sums()[1] ends.
    int32_t firstColumn() const { return static_cast<int32_t>(firstByte_) * 8; }
    /// sums()[k] is the weighted ink left of column firstColumn() + k; good up to one beyond the last column.
    const Sum* sums() const { return sums_.data(); }
    /// All ink lies in these runs of columns, left to right, apart by at least a column.
    std::span<const Columns> inked() const { return inked_; }

private:
    void gatherRows(const RowShare& share);
    void findInk();
    void addBitRows(size_t begin, size_t end);
    void runningSums();
    void buildInParts(RowShare share);
    const uint8_t* bytesOf(int32_t y) const { return raster_.row(y).data() + firstByte_; }

    const Raster& raster_;
    size_t firstByte_;
    size_t bytes_;
    BitCounter counter_;
    std::vector<BitRow> rows_;
    std::vector<uint8_t> anyInk_;
    std::vector<Columns> inked_;
    std::vector<uint16_t> inByte_; ///< a column: weighted ink from the start of its byte, itself included
    std::vector<Sum> sums_;
};

} // namespace pixmo
