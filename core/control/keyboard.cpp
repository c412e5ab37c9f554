#include "core/control/commands.h"

#include <algorithm>
#include <cmath>
#include <limits>

// The keys of the image area.
namespace pixmo {

namespace {

constexpr double ScrollStep = 30; ///< device-independent pixels

/// nullptr for a key that does not scroll.
const ScrollKey* scrollKey(int16_t keyCode, int16_t shift) {
    const auto keys = scrollKeys();
    const auto found = std::ranges::find_if(
        keys, [&](const ScrollKey& key) { return isPressed(key.shortcut, keyCode, shift); });
    return found == keys.end() ? nullptr : &*found;
}

/// nullptr for a key that is not the command's.
const Shortcut* shortcutIn(const CommandRow& row, int16_t keyCode, int16_t shift) {
    const auto* const found = std::ranges::find_if(
        row.keys, [&](const Shortcut& shortcut) { return isPressed(shortcut, keyCode, shift); });
    return found == row.keys.end() ? nullptr : found;
}

} // namespace

/// nullptr for a key that gives no command now.
const CommandRow* Commands::commandOf(int16_t keyCode, int16_t shift) const {
    const auto rows = commandTable();
    const auto found = std::ranges::find_if(rows, [&](const CommandRow& row) {
        return shortcutIn(row, keyCode, shift) && !isForbidden(row.key);
    });
    return found == rows.end() ? nullptr : &*found;
}

bool Commands::isKey(int16_t keyCode, int16_t shift) const {
    return scrollKey(keyCode, shift) || commandOf(keyCode, shift);
}

bool Commands::lvwImage_KeyDown(int16_t keyCode, int16_t shift) {
    if (!isKey(keyCode, shift))
        return false;
    diagnostics_.procedure("lvwImage_KeyDown").step([&] {
        const CommandRow* row = commandOf(keyCode, shift);
        if (!row)
            scroll(*scrollKey(keyCode, shift));
        else if (row->byKey)
            row->byKey(*this, shortcutIn(*row, keyCode, shift)->with);
        else
            run(row->key);
    });
    return true;
}

void Commands::scroll(const ScrollKey& key) {
    RasterView& view = uses_.lvrImage;
    if (key.toEdge) {
        const int32_t to = key.x > 0 || key.y > 0 ? std::numeric_limits<int32_t>::max() : 0;
        view.scrollTo(key.x != 0 ? to : view.horizontalBar().position,
                      key.y != 0 ? to : view.verticalBar().position);
        return;
    }
    const auto step = static_cast<int32_t>(std::lround(ScrollStep * uses_.viewSurface.devicePixelRatio()));
    view.scrollBy(key.x * step, key.y * step);
}

} // namespace pixmo
