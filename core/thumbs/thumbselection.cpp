#include "core/thumbs/thumbselection.h"

#include <algorithm>

namespace pixmo {

void ThumbSelection::click(int32_t item, How how) {
    if (anchor_ < 0)
        anchor_ = focus_;
    focus_ = item;
    if (how == How::Toggle) {
        if (!items_.erase(item))
            items_.insert(item);
        anchor_ = item;
        return;
    }
    items_.clear();
    if (how == How::Alone || anchor_ < 0)
        anchor_ = item;
    for (int32_t i = std::min(anchor_, item); i <= std::max(anchor_, item); ++i)
        items_.insert(i);
}

void ThumbSelection::selectAll(int32_t itemCount) {
    items_.clear();
    for (int32_t i = 0; i < itemCount; ++i)
        items_.insert(items_.end(), i);
}

void ThumbSelection::setBand(const std::set<int32_t>& before, const std::set<int32_t>& covered) {
    items_ = before;
    items_.insert(covered.begin(), covered.end());
}

void ThumbSelection::select(int32_t item, bool selected) {
    if (selected)
        items_.insert(item);
    else
        items_.erase(item);
}

void ThumbSelection::clear() {
    items_.clear();
    anchor_ = -1;
    focus_ = -1;
}

} // namespace pixmo
