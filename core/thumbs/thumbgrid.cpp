#include "core/thumbs/thumbgrid.h"

namespace pixmo {

void ThumbGrid::setItemCount(int32_t count) {
    itemCount_ = std::max(0, count);
    scrollTo(scroll_);
}

void ThumbGrid::setViewport(Size size) {
    const int32_t item = middleItem();
    viewport_ = {std::max(0, size.width), std::max(0, size.height)};
    keepMiddle(item);
}

void ThumbGrid::setPictureSize(Size size) {
    const int32_t item = middleItem();
    picture_ = size;
    keepMiddle(item);
}

int32_t ThumbGrid::columns() const {
    return std::max(1, viewport_.width / cellSize().width);
}

int32_t ThumbGrid::rows() const {
    return (itemCount_ + columns() - 1) / columns();
}

int32_t ThumbGrid::scrollMaximum() const {
    return std::max(0, rows() * cellSize().height - viewport_.height);
}

void ThumbGrid::scrollTo(int32_t position) {
    scroll_ = std::clamp(position, 0, scrollMaximum());
}

void ThumbGrid::scrollToItem(int32_t item) {
    const Rectangle place = cell(item);
    if (place.top < 0)
        scrollTo(scroll_ + place.top);
    else if (place.bottom() > viewport_.height)
        scrollTo(scroll_ + std::min(place.top, place.bottom() - viewport_.height));
}

Rectangle ThumbGrid::cell(int32_t item) const {
    const Size size = cellSize();
    const int32_t spare = std::max(0, viewport_.width - columns() * size.width);
    return {spare / 2 + item % columns() * size.width, item / columns() * size.height - scroll_, size.width,
            size.height};
}

int32_t ThumbGrid::itemAt(int32_t x, int32_t y) const {
    const Rectangle first = cell(0);
    const int32_t column = x < first.left ? -1 : (x - first.left) / first.width;
    const int32_t row = y < first.top ? -1 : (y - first.top) / first.height;
    if (column < 0 || column >= columns() || row < 0)
        return -1;
    const int32_t item = row * columns() + column;
    return item < itemCount_ ? item : -1;
}

ThumbGrid::Range ThumbGrid::visible(int32_t rowsBeyond) const {
    const int32_t height = cellSize().height;
    const int32_t firstRow = std::max(0, scroll_ / height - rowsBeyond);
    const int32_t endRow = (scroll_ + viewport_.height + height - 1) / height + rowsBeyond;
    const int32_t first = std::min(itemCount_, firstRow * columns());
    return {first, std::clamp(endRow * columns(), first, itemCount_)};
}

ThumbGrid::Range ThumbGrid::inRows(int32_t top, int32_t bottom) const {
    const int32_t height = cellSize().height;
    const int32_t lastRow = std::max(0, rows() - 1);
    const int32_t firstRow = std::clamp((top + scroll_) / height, 0, lastRow);
    const int32_t endRow = std::clamp((bottom + scroll_) / height, 0, lastRow) + 1;
    return {firstRow * columns(), std::min(itemCount_, endRow * columns())};
}

int32_t ThumbGrid::rowsFrom(int32_t item, int32_t rows) const {
    const int32_t across = columns();
    const int32_t row = std::clamp(item / across + rows, 0, std::max(0, this->rows() - 1));
    return std::clamp(row * across + item % across, 0, std::max(0, itemCount_ - 1));
}

int32_t ThumbGrid::middleItem() const {
    return (scroll_ + viewport_.height / 2) / cellSize().height * columns();
}

void ThumbGrid::keepMiddle(int32_t item) {
    if (scroll_ > 0)
        scrollTo(item / columns() * cellSize().height + cellSize().height / 2 - viewport_.height / 2);
    scrollTo(scroll_);
}

} // namespace pixmo
