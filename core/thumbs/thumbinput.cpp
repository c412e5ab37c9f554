#include "core/thumbs/dlgthumbs.h"

#include <algorithm>
#include <cstdlib>
#include <limits>

// Mouse and keyboard of the thumbnail window.
namespace pixmo {

namespace {

constexpr int16_t Shift = 1;
constexpr int16_t Ctrl = 2;

ThumbSelection::How howOf(int16_t shift) {
    if ((shift & Shift) != 0)
        return ThumbSelection::How::RangeFromAnchor;
    return (shift & Ctrl) != 0 ? ThumbSelection::How::Toggle : ThumbSelection::How::Alone;
}

} // namespace

void dlgThumbs::click(int32_t x, int32_t y, int16_t shift) {
    const int32_t item = grid_.itemAt(x, y);
    if (item < 0)
        return;
    selection_.click(item, howOf(shift));
    changed();
}

void dlgThumbs::doubleClick(int32_t x, int32_t y) {
    const int32_t item = grid_.itemAt(x, y);
    if (item >= 0)
        ItemSelected.raise(static_cast<int16_t>(item + 1));
}

void dlgThumbs::bandStart(int32_t x, int32_t y, int16_t shift) {
    bandActive_ = true;
    bandX_ = x;
    bandY_ = y + grid_.scrollPosition();
    bandBefore_.clear();
    if ((shift & (Shift | Ctrl)) != 0)
        bandBefore_ = selection_.items();
    bandMove(x, y);
}

void dlgThumbs::bandMove(int32_t x, int32_t y) {
    if (!bandActive_)
        return;
    const int32_t fromY = bandY_ - grid_.scrollPosition();
    band_ = {std::min(bandX_, x), std::min(fromY, y), std::abs(x - bandX_), std::abs(y - fromY)};
    selection_.setBand(bandBefore_, itemsIn(band_));
    changed();
}

void dlgThumbs::bandEnd() {
    bandActive_ = false;
    changed();
}

std::set<int32_t> dlgThumbs::itemsIn(const Rectangle& rectangle) const {
    std::set<int32_t> items;
    for (int32_t item = 0; item < grid_.itemCount(); ++item)
        if (!intersection(grid_.cell(item), rectangle).empty())
            items.insert(items.end(), item);
    return items;
}

bool dlgThumbs::keyDown(int16_t keyCode, int16_t shift) {
    const int32_t last = grid_.itemCount() - 1;
    const int32_t columns = grid_.columns();
    const int32_t rowsAPage = std::max(1, grid_.pageStep() / grid_.cellSize().height);
    const int32_t from = std::max(0, selection_.focus());
    struct Move {
        int16_t key;
        int32_t by;
    };
    for (const Move& move : {Move{0x25, -1}, Move{0x26, -columns}, Move{0x27, 1}, Move{0x28, columns},
                             Move{0x21, -columns * rowsAPage}, Move{0x22, columns * rowsAPage},
                             Move{0x24, -from}, Move{0x23, last - from}}) {
        if (move.key != keyCode)
            continue;
        moveFocus(std::clamp(from + move.by, 0, std::max(0, last)), shift);
        return true;
    }
    if (keyCode == 0x0D && selection_.focus() >= 0)
        ItemSelected.raise(static_cast<int16_t>(selection_.focus() + 1));
    else if (keyCode == 'A' && shift == Ctrl)
        selectAll();
    else if (keyCode == 'P' && shift == Ctrl)
        printSelection();
    else if (keyCode == 0x20 && last >= 0)
        selection_.click(from, ThumbSelection::How::Toggle), changed();
    else if (keyCode == 0x6B || keyCode == 0xBB)
        larger();
    else if (keyCode == 0x6D || keyCode == 0xBD)
        smaller();
    else
        return false;
    return true;
}

void dlgThumbs::moveFocus(int32_t item, int16_t shift) {
    if (grid_.itemCount() == 0)
        return;
    if ((shift & Ctrl) != 0)
        selection_.setFocus(item);
    else
        selection_.click(item, howOf(shift));
    grid_.scrollToItem(item);
    startLoading();
    changed();
}

void dlgThumbs::selectAll() {
    selection_.selectAll(grid_.itemCount());
    changed();
}

std::vector<int16_t> dlgThumbs::selectedPages() const {
    std::vector<int16_t> pages;
    for (const int32_t item : selection_.items())
        pages.push_back(static_cast<int16_t>(item + 1));
    return pages;
}

void dlgThumbs::printSelection() {
    const std::vector<int16_t> pages = selectedPages();
    if (!pages.empty())
        PrintSelection.raise(pages);
}

} // namespace pixmo
