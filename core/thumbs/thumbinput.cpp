#include "core/base/virtualkeys.h"
#include "core/thumbs/dlgthumbs.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <utility>

// What the user selects, by keys and by places that ThumbMouse tells.
namespace pixmo {

namespace {

using shift_key::Alt;
using shift_key::Ctrl;
using shift_key::Shift;

ThumbSelection::How howOf(int16_t shift) {
    if ((shift & Shift) != 0)
        return ThumbSelection::How::RangeFromAnchor;
    return (shift & Ctrl) != 0 ? ThumbSelection::How::Toggle : ThumbSelection::How::Alone;
}

} // namespace

int16_t dlgThumbs::pageAt(double x, double y) const {
    const auto whole = [](double place) { return static_cast<int32_t>(std::floor(place)); };
    return static_cast<int16_t>(grid_.itemAt(whole(x), whole(y)) + 1);
}

Rectangle dlgThumbs::menuPlace() const {
    const Rectangle view = {0, 0, grid_.viewport().width, grid_.viewport().height};
    const Rectangle seen = intersection(grid_.cell(std::max(0, selection_.focus())), view);
    return seen.empty() ? view : seen;
}

dlgThumbs::Told dlgThumbs::takeChanges() {
    const int32_t focus = selection_.focus();
    const size_t selected = selection_.items().size();
    return {std::exchange(toldFocus_, focus) != focus && focus >= 0,
            std::exchange(toldSelected_, selected) != selected};
}

void dlgThumbs::click(int32_t x, int32_t y, int16_t shift) {
    const int32_t item = grid_.itemAt(x, y);
    if (item < 0)
        return;
    selection_.click(item, howOf(shift));
    if ((shift & (Shift | Ctrl)) == 0)
        retry(static_cast<int16_t>(item + 1));
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
    const ThumbGrid::Range rows = grid_.inRows(rectangle.top, rectangle.bottom());
    for (int32_t item = rows.first; item < rows.end; ++item)
        if (!intersection(grid_.cell(item), rectangle).empty())
            items.insert(items.end(), item);
    return items;
}

/// Where a key takes the focus; none for keys that do something else.
std::optional<int32_t> dlgThumbs::moveOf(int16_t keyCode) const {
    const int32_t last = std::max(0, grid_.itemCount() - 1);
    const int32_t from = std::max(0, selection_.focus());
    const int32_t rowsAPage = std::max(1, grid_.pageStep() / grid_.cellSize().height);
    switch (keyCode) {
    case key::Left:
        return std::max(0, from - 1);
    case key::Right:
        return std::min(last, from + 1);
    case key::Up:
        return grid_.rowsFrom(from, -1);
    case key::Down:
        return grid_.rowsFrom(from, 1);
    case key::PageUp:
        return grid_.rowsFrom(from, -rowsAPage);
    case key::PageDown:
        return grid_.rowsFrom(from, rowsAPage);
    case key::Home:
        return 0;
    case key::End:
        return last;
    default:
        return std::nullopt;
    }
}

bool dlgThumbs::keyDown(int16_t keyCode, int16_t shift) {
    if ((shift & Alt) != 0)
        return false;
    if (const auto item = moveOf(keyCode)) {
        moveFocus(*item, shift);
        return true;
    }
    if (keyCode == key::Enter)
        jumpToFocus();
    else if (keyCode == 'A' && shift == Ctrl)
        selectAll();
    else if (keyCode == 'P' && shift == Ctrl)
        printSelection();
    else if (keyCode == key::Space)
        toggleFocus();
    else if (keyCode == key::PadPlus || keyCode == key::Plus)
        larger();
    else if (keyCode == key::PadMinus || keyCode == key::Minus)
        smaller();
    else
        return false;
    return true;
}

void dlgThumbs::jumpToFocus() {
    if (selection_.focus() >= 0)
        ItemSelected.raise(static_cast<int16_t>(selection_.focus() + 1));
}

void dlgThumbs::toggleFocus() {
    if (grid_.itemCount() == 0)
        return;
    selection_.click(std::max(0, selection_.focus()), ThumbSelection::How::Toggle);
    changed();
}

void dlgThumbs::setSelected(int16_t page, bool selected) {
    if (page < 1 || page > grid_.itemCount())
        return;
    selection_.select(page - 1, selected);
    changed();
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
    if (canPrintSelection())
        PrintSelection.raise(selectedPages());
}

} // namespace pixmo
