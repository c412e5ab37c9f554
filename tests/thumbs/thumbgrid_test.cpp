#include "core/thumbs/thumbgrid.h"

#include <gtest/gtest.h>

namespace pixmo {
namespace {

TEST(ThumbGrid, PlacesAndCellsAgree) {
    ThumbGrid grid;
    grid.setItemCount(25);
    grid.setViewport({500, 400});
    grid.scrollTo(100);
    EXPECT_EQ(grid.columns(), 4);
    EXPECT_EQ(grid.rows(), 7);
    for (int32_t item = 0; item < 25; ++item) {
        const Rectangle cell = grid.cell(item);
        EXPECT_EQ(grid.itemAt(cell.left, cell.top), item);
        EXPECT_EQ(grid.itemAt(cell.right() - 1, cell.bottom() - 1), item);
    }
    const Rectangle last = grid.cell(24);
    EXPECT_EQ(grid.itemAt(last.right() + 1, last.top), -1) << "the last row ends early";
    EXPECT_EQ(grid.itemAt(grid.cell(0).left - 1, 10), -1);
    EXPECT_EQ(grid.itemAt(grid.cell(3).right(), 10), -1);
}

TEST(ThumbGrid, SeenRangeIsWhatTouchesTheWindow) {
    ThumbGrid grid;
    grid.setItemCount(1000);
    grid.setViewport({500, 400});
    for (const int32_t scroll : {0, 1, 165, 166, 167, 5000, grid.scrollMaximum()}) {
        grid.scrollTo(scroll);
        const ThumbGrid::Range range = grid.visible();
        for (int32_t item = 0; item < 1000; ++item) {
            const Rectangle cell = grid.cell(item);
            EXPECT_EQ(cell.bottom() > 0 && cell.top < 400, item >= range.first && item < range.end)
                << scroll << ", " << item;
        }
    }
}

TEST(ThumbGrid, KeepsWhatIsInTheMiddle) {
    ThumbGrid grid;
    grid.setItemCount(1000);
    grid.setViewport({500, 400});
    grid.scrollTo(10'000);
    const int32_t middle = grid.itemAt(30, 200);
    grid.setViewport({900, 400});
    const Rectangle wider = grid.cell(middle);
    EXPECT_TRUE(wider.top < 400 && wider.bottom() > 0);
    grid.setPictureSize({50, 65});
    const Rectangle smaller = grid.cell(middle);
    EXPECT_TRUE(smaller.top < 400 && smaller.bottom() > 0);
}

TEST(ThumbGrid, HoldsInAnyRoom) {
    for (const Size room : {Size{0, 0}, Size{10, 10}, Size{20'000, 20'000}})
        for (const int32_t count : {0, 1, 32'000}) {
            ThumbGrid grid;
            grid.setItemCount(count);
            grid.setViewport(room);
            grid.scrollTo(1 << 29);
            EXPECT_EQ(grid.scrollPosition(), grid.scrollMaximum());
            EXPECT_LE(grid.visible(1).end, count);
            grid.scrollToItem(0);
            EXPECT_GE(grid.columns(), 1);
            EXPECT_EQ(grid.cell(0).top, 0);
        }
}

} // namespace
} // namespace pixmo
