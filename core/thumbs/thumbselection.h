#pragma once

#include <cstdint>
#include <set>

namespace pixmo {

/// Which of the items are selected, and from which one a range grows: the one clicked last without Shift, or,
/// when there is none, the one that has the focus.
class ThumbSelection {
public:
    enum class How : uint8_t { Alone, Toggle, RangeFromAnchor };

    void click(int32_t item, How how);
    void selectAll(int32_t itemCount);
    /// A rubber band: what it covers now beside what was selected when it began.
    void setBand(const std::set<int32_t>& before, const std::set<int32_t>& covered);
    /// Leaves all other items, the focus and the start of a range as they are.
    void select(int32_t item, bool selected);
    void clear();

    bool isSelected(int32_t item) const { return items_.contains(item); }
    const std::set<int32_t>& items() const { return items_; }
    /// The item that the keyboard moves from; -1 for none.
    int32_t focus() const { return focus_; }
    void setFocus(int32_t item) { focus_ = item; }

private:
    std::set<int32_t> items_;
    int32_t anchor_ = -1;
    int32_t focus_ = -1;
};

} // namespace pixmo
