#include "core/base/virtualkeys.h"
#include "core/control/commands.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

// The keys of the image area.
namespace pixmo {

namespace {

/// Which state of Shift, Ctrl and Alt a row is for.
enum class With : int16_t { Shift = 1, Ctrl = 2, CtrlShift = 3, CtrlAltShift = 7, AnyOther = -1 };

bool isMeant(With with, int16_t shift) {
    if (with == With::AnyOther)
        return shift != 1 && shift != 3 && shift != 7;
    return static_cast<int16_t>(with) == shift;
}

std::string prefixOf(With with) {
    switch (with) {
    case With::Shift:
        return "Shift+";
    case With::Ctrl:
        return "Ctrl+";
    case With::CtrlShift:
        return "Ctrl+Shift+";
    case With::CtrlAltShift:
        return "Ctrl+Alt+Shift+";
    default:
        return {};
    }
}

std::string nameOf(int16_t keyCode) {
    constexpr std::array<const char*, 8> names = {"Page Up", "Page Down", "End",   "Home",
                                                  "Left",    "Up",        "Right", "Down"};
    const auto index = static_cast<size_t>(keyCode - key::PageUp);
    return index < names.size() ? names[index] : std::string(1, static_cast<char>(keyCode));
}

constexpr double ScrollStep = 30; ///< device-independent pixels

} // namespace

struct KeyTable {
    using C = Commands;
    struct Row {
        With with;
        int16_t keyCode;
        std::string_view command; ///< "" for what is no command of its own
        void (*act)(Commands&);
    };

    /// As the button does it, so that a disabled one does nothing.
    static void click(C& c, std::string_view key) {
        if (const ToolButton* button = c.commandBar_.tlbImage().find(key))
            c.tlbImage_ButtonClick(ToolButton(*button));
    }
    static void debugWithCtrl(C& c) {
        c.toggleDebug();
        c.tellDebugging("Ctl+Alt+Shft+T");
    }
    static void debugWithShift(C& c) {
        c.toggleDebug();
        c.tellDebugging("Shift+T");
    }

    static constexpr std::array<Row, 24> Rows = {{
        {With::CtrlAltShift, 'D', "DEBUG", debugWithCtrl},
        {With::CtrlAltShift, 'T', "SHOWLOG", nullptr},
        {With::CtrlAltShift, 'C', "CLEARDEBUG", nullptr},
        {With::Shift, 'D', "DEBUG", debugWithShift},
        {With::Shift, 'T', "SHOWLOG", nullptr},
        {With::Shift, 'C', "CLEARDEBUG", nullptr},
        {With::Shift, key::Up, "", [](C& c) { c.scrollTo(false, false); }},
        {With::Shift, key::Left, "", [](C& c) { c.scrollTo(true, false); }},
        {With::Shift, key::Down, "", [](C& c) { c.scrollTo(false, true); }},
        {With::Shift, key::Right, "", [](C& c) { c.scrollTo(true, true); }},
        {With::CtrlShift, 'G', "GRAYSCALE", nullptr},
        {With::CtrlShift, 'H', "FITHEIGHT", nullptr},
        {With::CtrlShift, 'P', "PRINT", nullptr},
        {With::CtrlShift, 'W', "FITWIDTH", nullptr},
        {With::Ctrl, 'C', "COPY", nullptr},
        {With::Ctrl, 'S', "SAVEPAGE", nullptr},
        {With::AnyOther, key::Up, "", [](C& c) { c.scrollStep(0, -1); }},
        {With::AnyOther, key::Down, "", [](C& c) { c.scrollStep(0, 1); }},
        {With::AnyOther, key::Left, "", [](C& c) { c.scrollStep(-1, 0); }},
        {With::AnyOther, key::Right, "", [](C& c) { c.scrollStep(1, 0); }},
        {With::AnyOther, key::PageUp, "PAGEPREV", [](C& c) { click(c, "PAGEPREV"); }},
        {With::AnyOther, key::PageDown, "PAGENEXT", [](C& c) { click(c, "PAGENEXT"); }},
        {With::AnyOther, key::Home, "PAGEFIRST", nullptr},
        {With::AnyOther, key::End, "PAGELAST", nullptr},
    }};

    /// nullptr for a key that means nothing now.
    static const Row* find(const C& c, int16_t keyCode, int16_t shift) {
        const auto* const found = std::find_if(Rows.begin(), Rows.end(), [&](const Row& row) {
            return row.keyCode == keyCode && isMeant(row.with, shift) && !c.isForbidden(row.command);
        });
        return found == Rows.end() ? nullptr : found;
    }

    static void act(C& c, const Row& row) {
        if (row.act)
            row.act(c);
        else
            c.run(row.command);
    }
};

bool Commands::lvwImage_KeyDown(int16_t keyCode, int16_t shift) {
    const KeyTable::Row* const row = KeyTable::find(*this, keyCode, shift);
    if (row)
        parts_.procedure("lvwImage_KeyDown").step([&] { KeyTable::act(*this, *row); });
    return row;
}

bool Commands::isKey(int16_t keyCode, int16_t shift) const {
    return KeyTable::find(*this, keyCode, shift);
}

std::string Commands::shortcutOf(std::string_view key) {
    const auto& rows = KeyTable::Rows;
    const auto row = std::find_if(rows.begin(), rows.end(),
                                  [key](const KeyTable::Row& each) { return each.command == key; });
    return row == rows.end() || key.empty() ? std::string() : prefixOf(row->with) + nameOf(row->keyCode);
}

void Commands::scrollTo(bool horizontal, bool toEnd) {
    RasterView& view = parts_.lvrImage;
    const int32_t to = toEnd ? std::numeric_limits<int32_t>::max() : 0;
    view.scrollTo(horizontal ? to : view.horizontalBar().position,
                  horizontal ? view.verticalBar().position : to);
}

void Commands::scrollStep(int32_t x, int32_t y) {
    const auto step =
        static_cast<int32_t>(std::lround(ScrollStep * parts_.ports.viewSurface->devicePixelRatio()));
    parts_.lvrImage.scrollBy(x * step, y * step);
}

} // namespace pixmo
