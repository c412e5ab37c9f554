#include "core/control/commands.h"

#include <array>
#include <cmath>
#include <limits>

// The keys of the image area.
namespace pixmo {

namespace {

/// Which state of Shift, Ctrl and Alt a row is for.
enum class With : uint8_t { CtrlAltShift, Shift, CtrlShift, AnyOther };

With stateOf(int16_t shift) {
    switch (shift) {
    case 7:
        return With::CtrlAltShift;
    case 1:
        return With::Shift;
    case 3:
        return With::CtrlShift;
    default:
        return With::AnyOther;
    }
}

/// Virtual-key codes.
namespace key {
constexpr int16_t PageUp = 0x21;
constexpr int16_t PageDown = 0x22;
constexpr int16_t End = 0x23;
constexpr int16_t Home = 0x24;
constexpr int16_t Left = 0x25;
constexpr int16_t Up = 0x26;
constexpr int16_t Right = 0x27;
constexpr int16_t Down = 0x28;
} // namespace key

constexpr double ScrollStep = 30; ///< device-independent pixels

} // namespace

struct KeyTable {
    using C = Commands;
    struct Row {
        With with;
        int16_t keyCode;
        void (*act)(Commands&);
    };

    /// As the button does it, so that a disabled one does nothing.
    static void click(Commands& c, std::string_view key) {
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

    static constexpr std::array<Row, 22> Rows = {{
        {With::CtrlAltShift, 'D', debugWithCtrl},
        {With::CtrlAltShift, 'T', [](C& c) { c.run("SHOWLOG"); }},
        {With::CtrlAltShift, 'C', [](C& c) { c.run("CLEARDEBUG"); }},
        {With::Shift, 'D', debugWithShift},
        {With::Shift, 'T', [](C& c) { c.run("SHOWLOG"); }},
        {With::Shift, 'C', [](C& c) { c.run("CLEARDEBUG"); }},
        {With::Shift, key::Up, [](C& c) { c.scrollTo(false, false); }},
        {With::Shift, key::Left, [](C& c) { c.scrollTo(true, false); }},
        {With::Shift, key::Down, [](C& c) { c.scrollTo(false, true); }},
        {With::Shift, key::Right, [](C& c) { c.scrollTo(true, true); }},
        {With::CtrlShift, 'G', [](C& c) { c.run("GRAYSCALE"); }},
        {With::CtrlShift, 'H', [](C& c) { c.run("FITHEIGHT"); }},
        {With::CtrlShift, 'P', [](C& c) { c.run("PRINT"); }},
        {With::CtrlShift, 'W', [](C& c) { c.run("FITWIDTH"); }},
        {With::AnyOther, key::Up, [](C& c) { c.scrollStep(0, -1); }},
        {With::AnyOther, key::Down, [](C& c) { c.scrollStep(0, 1); }},
        {With::AnyOther, key::Left, [](C& c) { c.scrollStep(-1, 0); }},
        {With::AnyOther, key::Right, [](C& c) { c.scrollStep(1, 0); }},
        {With::AnyOther, key::PageUp, [](C& c) { click(c, "PAGEPREV"); }},
        {With::AnyOther, key::PageDown, [](C& c) { click(c, "PAGENEXT"); }},
        {With::AnyOther, key::Home, [](C& c) { c.run("PAGEFIRST"); }},
        {With::AnyOther, key::End, [](C& c) { c.run("PAGELAST"); }},
    }};
};

bool Commands::lvwImage_KeyDown(int16_t keyCode, int16_t shift) {
    const With with = stateOf(shift);
    for (const KeyTable::Row& row : KeyTable::Rows) {
        if (row.with != with || row.keyCode != keyCode)
            continue;
        parts_.procedure("lvwImage_KeyDown").step([&] { row.act(*this); });
        return true;
    }
    return false;
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
