#pragma once

#include "core/imaging/viewgeometry.h"
#include "core/raster/rectangle.h"

#include <cstdint>

namespace pixmo {

/// Where the thumbnails stand in their window: rows of equal cells, as many as fit across. All lengths are
/// device-independent pixels; items count from 0.
class ThumbGrid {
public:
    static constexpr int32_t Margin = 8;        ///< around a picture in its cell
    static constexpr int32_t NumberHeight = 20; ///< of the line with the page number

    void setItemCount(int32_t count);
    /// Keeps the item that is in the middle where it is, as near as may be.
    void setViewport(Size size);
    void setPictureSize(Size size);

    Size viewport() const { return viewport_; }
    int32_t itemCount() const { return itemCount_; }
    Size pictureSize() const { return picture_; }
    Size cellSize() const {
        return {picture_.width + 2 * Margin, picture_.height + 2 * Margin + NumberHeight};
    }
    int32_t columns() const;
    int32_t rows() const;

    int32_t scrollPosition() const { return scroll_; }
    int32_t scrollMaximum() const;
    int32_t pageStep() const { return viewport_.height; }
    ScrollBar scrollBar() const { return {scroll_, scrollMaximum(), pageStep(), lineStep()}; }
    int32_t lineStep() const { return cellSize().height / 4; }
    void scrollTo(int32_t position);
    /// As little as needed to see all of the item.
    void scrollToItem(int32_t item);

    /// The cell of an item in the window; may lie outside of it.
    Rectangle cell(int32_t item) const;
    /// -1 where there is none.
    int32_t itemAt(int32_t x, int32_t y) const;
    /// First and behind the last of the items whose cells touch the window, with so many rows beyond.
    struct Range {
        int32_t first = 0;
        int32_t end = 0;
    };
    Range visible(int32_t rowsBeyond = 0) const;
    /// The items of all rows that touch a band of the window.
    Range inRows(int32_t top, int32_t bottom) const;
    /// The item so many rows further down in the same column, or the nearest to it that there is.
    int32_t rowsFrom(int32_t item, int32_t rows) const;

private:
    void keepMiddle(int32_t item);
    int32_t middleItem() const;

    int32_t itemCount_ = 0;
    Size viewport_;
    Size picture_{100, 130};
    int32_t scroll_ = 0;
};

} // namespace pixmo
