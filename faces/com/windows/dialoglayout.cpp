#include "faces/com/windows/dialoglayout.h"

#include <algorithm>

namespace pixmo::com {

namespace {

using Kind = DialogPart::Kind;

bool isRow(const DialogPart& group) {
    return group.kind == Kind::Row || group.kind == Kind::Buttons;
}

/// In a row; other fields stand in its middle.
bool fillsHeight(const DialogPart& part) {
    return DialogLayout::isGroup(part) || part.kind == Kind::List || part.kind == Kind::ScrolledText ||
           part.kind == Kind::Sheet || part.kind == Kind::Lines || part.kind == Kind::Label;
}

/// In a column.
bool fillsWidth(const DialogPart& part) {
    return part.kind != Kind::Number && part.kind != Kind::Button;
}

LONG stretchingParts(const DialogPart& group) {
    return static_cast<LONG>(std::ranges::count_if(
        group.parts, [](const DialogPart& part) { return part.visibleNow() && part.stretches; }));
}

} // namespace

bool DialogLayout::isGroup(const DialogPart& part) {
    return part.kind == Kind::Row || part.kind == Kind::Column || part.kind == Kind::Frame ||
           part.kind == Kind::Buttons;
}

LONG DialogLayout::gapBefore(const DialogPart& group, const DialogPart& part) const {
    if (&part == &group.parts.front())
        return 0;
    if (part.kind == Kind::Buttons)
        return measures.buttonsGap;
    return part.kind == Kind::Option && !isRow(group) ? measures.optionGap : measures.gap;
}

RECT DialogLayout::inside(const DialogPart& group, RECT area) const {
    if (group.kind != Kind::Frame)
        return area;
    return {area.left + measures.frameSide, area.top + measures.frameTop, area.right - measures.frameSide,
            area.bottom - measures.frameBottom};
}

SIZE DialogLayout::least(const DialogPart& part) const {
    if (!part.visibleNow())
        return {0, 0};
    if (!isGroup(part))
        return fieldSize(part);
    SIZE sum{};
    for (const DialogPart& each : part.parts) {
        const SIZE size = least(each);
        const LONG gap = each.visibleNow() ? gapBefore(part, each) : 0;
        if (isRow(part))
            sum = {sum.cx + size.cx + gap, std::max(sum.cy, size.cy)};
        else
            sum = {std::max(sum.cx, size.cx), sum.cy + size.cy + gap};
    }
    const RECT border = inside(part, {0, 0, 0, 0});
    return {sum.cx + border.left - border.right, sum.cy + border.top - border.bottom};
}

void DialogLayout::place(const DialogPart& part, const RECT& area) const {
    if (!part.visibleNow())
        return hide(part);
    if (!isGroup(part))
        return put(part, &area);
    if (part.kind == Kind::Frame)
        put(part, &area);
    const RECT room = inside(part, area);
    const SIZE needed = least(part);
    LONG left = isRow(part) ? area.right - area.left - needed.cx : area.bottom - area.top - needed.cy;
    LONG stretching = stretchingParts(part);
    // The buttons that end a window stand at its right side.
    bool endsWindow = part.kind == Kind::Buttons;
    LONG at = isRow(part) ? room.left : room.top;
    for (const DialogPart& each : part.parts) {
        if (!each.visibleNow()) {
            hide(each);
            continue;
        }
        const SIZE size = least(each);
        at += gapBefore(part, each);
        const bool moves = endsWindow && each.meaning != DialogPart::Meaning::None;
        if (moves)
            at += std::exchange(left, 0);
        endsWindow = endsWindow && !moves;
        const LONG more = each.stretches ? left / stretching-- : 0;
        left -= more;
        const LONG end = at + more + (isRow(part) ? size.cx : size.cy);
        place(each, placeOf(part, each,
                            isRow(part) ? RECT{at, room.top, end, room.bottom}
                                        : RECT{room.left, at, room.right, end}));
        at = end;
    }
}

/// Within the room that it has across the direction of its group.
RECT DialogLayout::placeOf(const DialogPart& group, const DialogPart& part, const RECT& room) const {
    const SIZE size = least(part);
    if (isRow(group) && !fillsHeight(part)) {
        const LONG top =
            part.kind == Kind::Icon ? room.top : room.top + (room.bottom - room.top - size.cy) / 2;
        return {room.left, top, room.right, top + size.cy};
    }
    if (!isRow(group) && !fillsWidth(part))
        return {room.left, room.top, room.left + size.cx, room.bottom};
    return room;
}

void DialogLayout::hide(const DialogPart& part) const {
    if (!isGroup(part) || part.kind == Kind::Frame)
        put(part, nullptr);
    for (const DialogPart& each : part.parts)
        hide(each);
}

} // namespace pixmo::com
