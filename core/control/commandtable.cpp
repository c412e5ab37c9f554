#include "core/control/commandtable.h"

#include "core/base/virtualkeys.h"
#include "core/control/commands.h"

#include <algorithm>
#include <tuple>
#include <vector>

namespace pixmo {

namespace {

using Facts = CommandFacts;
using Rule = bool (*)(const Facts&);

constexpr Rule Always = [](const Facts&) { return true; };
constexpr Rule PageIsDisplayed = [](const Facts& facts) { return facts.pageDisplayed; };
constexpr Rule PageCanBePrinted = [](const Facts& facts) {
    return facts.pageDisplayed && facts.canPrint && !facts.printing;
};
constexpr Rule HasPages = [](const Facts& facts) { return facts.pageCount >= 1; };

constexpr PopupMenu Image = PopupMenu::Image;
constexpr PopupMenu Bar = PopupMenu::Toolbar;

constexpr auto
    Rows =
        std::to_array<CommandRow>(
            {
                {.key = "THUMBS",
                 .text = "&Thumbnails",
                 .enabled = [](const Facts& f) { return f.pageCount >= 1 && f.canShowThumbs; },
                 .run = [](Commands& c) { c.ThumbnailsRequested.raise(); },
                 .button = {0, 0, "Thumbs", "View thumbnails", ButtonStyle::Default, Presence::WithThumbs}},
                {.key = "PRINT",
                 .text = "P&rint\u2026",
                 .enabled = PageCanBePrinted,
                 .run = [](Commands& c) { c.PrintRequested.raise(true); },
                 .button = {1, 0, "Print", "Print document"},
                 .menu = {Image, 2, 2, "mnuPopupPrint"},
                 .keys = {{{With::CtrlShift, 'P'}}}},
                {.key = "QUICKPRINT",
                 .text = "&Quick Print",
                 .enabled = PageCanBePrinted,
                 .run = [](Commands& c) { c.PrintRequested.raise(false); },
                 .button = {1, 1, "Quick Print", "Print current page"}},
                {.key = "CANCEL",
                 .text = "&Cancel Transfer",
                 .enabled = [](const Facts& f) { return f.transferPending || f.printing; },
                 .run = [](Commands& c) { c.cancel(); },
                 .button = {1, 2, "Cancel", "Cancel transfer"}},
                {.key = "PAN",
                 .text = "&Pan",
                 .enabled = PageIsDisplayed,
                 .run = [](Commands& c) { c.panMode(); },
                 .checked = [](const Commands& c) { return c.isPanning(); },
                 .button = {2, 0, "Pan", "Pan image", ButtonStyle::ButtonGroup},
                 .menu = {Image, 0, 0, "mnuPopupPan"}},
                {.key = "SELECTION",
                 .text = "&Zoom to Selection",
                 .enabled = PageIsDisplayed,
                 .run = [](Commands& c) { c.selectionMode(); },
                 .checked = [](const Commands& c) { return !c.isPanning(); },
                 .button = {2, 1, "Zoom", "Zoom to selection", ButtonStyle::ButtonGroup},
                 .menu = {Image, 0, 1, "mnuPopupSelect"}},
                {.key = "ROTL",
                 .text = "Rotate &Left",
                 .enabled = PageIsDisplayed,
                 .run = [](Commands& c) { c.picture().imgRotateLeft(); },
                 .button = {3, 0, "Rotate", "Rotate left"}},
                {.key = "ROTR",
                 .text = "Rotate Ri&ght",
                 .enabled = PageIsDisplayed,
                 .run = [](Commands& c) { c.picture().imgRotateRight(); },
                 .button = {3, 1, "Rotate", "Rotate right"}},
                {.key = "PAGEPREV",
                 .text = "&Previous Page",
                 .enabled = [](const Facts& f) { return f.page > 1; },
                 .run = [](Commands& c) { c.turnBy(-1); },
                 .button = {4, 0, "Prev", "Previous page"},
                 .keys = {{{With::AnyOther, key::PageUp}}},
                 .byKey = [](Commands& c, With) { c.click("PAGEPREV"); }},
                {.key = "PAGENEXT",
                 .text = "&Next Page",
                 .enabled = [](const Facts& f) { return f.pageCount >= 1 && f.page < f.pageCount; },
                 .run = [](Commands& c) { c.turnBy(1); },
                 .button = {4, 1, "Next", "Next page"},
                 .keys = {{{With::AnyOther, key::PageDown}}},
                 .byKey = [](Commands& c, With) { c.click("PAGENEXT"); }},
                {.key = "PAGEGOTO",
                 .text = "&Go to Page\u2026",
                 .enabled = [](const Facts& f) { return f.pageCount > 1; },
                 .run = [](Commands& c) { c.dialogs().imgPageGoto(); },
                 .button = {4, 2, "Goto", "Goto page"}},
                {.key = "FITHEIGHT",
                 .text = "Fit &Height",
                 .enabled = PageIsDisplayed,
                 .run = [](Commands& c) { c.picture().imgFitHeight(); },
                 .button = {5, 0, "Fit Height", "Fit height"},
                 .menu = {Image, 1, 1, "mnuPopupFitHeight"},
                 .keys = {{{With::CtrlShift, 'H'}}}},
                {.key = "FITWIDTH",
                 .text = "Fit &Width",
                 .enabled = PageIsDisplayed,
                 .run = [](Commands& c) { c.picture().imgFitWidth(); },
                 .button = {5, 1, "Fit Width", "Fit width"},
                 .menu = {Image, 1, 2, "mnuPopupFitWidth"},
                 .keys = {{{With::CtrlShift, 'W'}}}},
                {.key = "STAR",
                 .text = "Book&mark Page",
                 .enabled = PageIsDisplayed,
                 .run = [](Commands& c) { c.requestBookmark(); },
                 .button = {6, 0, "Bookmark", "Bookmark Page", ButtonStyle::Default, Presence::WithBookmark}},
                {.key = "ZOOM",
                 .text = "Zoom In",
                 .enabled = PageIsDisplayed,
                 .run =
                     [](Commands& c) {
                         c.picture().imgZoomIn();
                         c.panMode();
                     }},
                {.key = "FITBEST",
                 .text = "Fit &Best",
                 .enabled = PageIsDisplayed,
                 .run = [](Commands& c) { c.picture().imgFitBest(); },
                 .menu = {Image, 1, 0, "mnuPopupFitBest"}},
                {.key = "ZOOMIN",
                 .text = "Zoom &In",
                 .enabled = PageIsDisplayed,
                 .run = [](Commands& c) { c.picture().imgZoomIn(); }},
                {.key = "ZOOMOUT",
                 .text = "Zoom &Out",
                 .enabled = PageIsDisplayed,
                 .run = [](Commands& c) { c.picture().imgZoomOut(); }},
                {.key = "PAGEFIRST",
                 .text = "&First Page",
                 .enabled = HasPages,
                 .run = [](Commands& c) { c.turnTo(1); },
                 .keys = {{{With::AnyOther, key::Home}}}},
                {.key = "PAGELAST",
                 .text = "&Last Page",
                 .enabled = HasPages,
                 .run = [](Commands& c) { c.turnToLast(); },
                 .keys = {{{With::AnyOther, key::End}}}},
                {.key = "GRAYSCALE",
                 .text = "Gra&yscale",
                 .enabled = Always,
                 .run = [](Commands& c) { c.letGrayScale(!c.checks.mnuPopupGrayscale); },
                 .checked = [](const Commands& c) { return c.checks.mnuPopupGrayscale; },
                 .menu = {Image, 1, 3, "mnuPopupGrayscale"},
                 .keys = {{{With::CtrlShift, 'G'}}}},
                {.key = "COPY",
                 .text = "&Copy",
                 .enabled = PageIsDisplayed,
                 .run = [](Commands& c) { c.dialogs().copyPage(); },
                 .menu = {Image, 2, 0, "mnuPopupCopy"},
                 .keys = {{{With::Ctrl, 'C'}}}},
                {.key = "SAVEPAGE",
                 .text = "&Save Page As\u2026",
                 .enabled = PageIsDisplayed,
                 .run = [](Commands& c) { c.dialogs().savePage(); },
                 .menu = {Image, 2, 1, "mnuPopupSavePage"},
                 .keys = {{{With::Ctrl, 'S'}}}},
                {.key = "IMAGEINFO",
                 .text = "Ima&ge Information\u2026",
                 .enabled = Always,
                 .run = [](Commands& c) { c.dialogs().imageInfo(); },
                 .menu = {Image, 3, 0, "mnuPopupImageInfo"}},
                {.key = "ABOUT",
                 .text = "&About\u2026",
                 .enabled = Always,
                 .run = [](Commands& c) { c.dialogs().about(); },
                 .menu = {Image, 3, 1, "mnuPopupAbout"}},
                {.key = "BUTTONCAPTIONS",
                 .text = "Button &Captions",
                 .enabled = Always,
                 .run = [](Commands& c) { c.buttonCaptions(); },
                 .checked = [](const Commands& c) { return c.checks.mnuPopup1ButtonCaptions; },
                 .menu = {Bar, 0, 0, "mnuPopup1ButtonCaptions"}},
                {.key = "LARGEBUTTONS",
                 .text = "&Large Buttons",
                 .enabled = Always,
                 .run = [](Commands& c) { c.setLargeButtons(true); },
                 .checked = [](const Commands& c) { return c.checks.mnuPopup1LargeButtons; },
                 .menu = {Bar, 1, 0, "mnuPopup1LargeButtons"}},
                {.key = "SMALLBUTTONS",
                 .text = "&Small Buttons",
                 .enabled = Always,
                 .run = [](Commands& c) { c.setLargeButtons(false); },
                 .checked = [](const Commands& c) { return c.checks.mnuPopup1SmallButtons; },
                 .menu = {Bar, 1, 1, "mnuPopup1SmallButtons"}},
                {.key = "DEBUG",
                 .text = "&Debugging",
                 .enabled = Always,
                 .run = [](Commands& c) { c.toggleDebug(); },
                 .checked = [](const Commands& c) { return c.debugShown; },
                 .keys = {{{With::CtrlAltShift, 'D'}, {With::Shift, 'D'}}},
                 .byKey =
                     [](Commands& c, With with) {
                         c.toggleDebug();
                         c.tellDebugging(with == With::Shift ? "Shift+T" : "Ctl+Alt+Shft+T");
                     }},
                {.key = "SHOWLOG",
                 .text = "View &Log\u2026",
                 .enabled = Always,
                 .run = [](Commands& c) { c.dialogs().showLog(); },
                 .menu = {Image, 3, 2, "mnuDebug", true},
                 .keys = {{{With::CtrlAltShift, 'T'}, {With::Shift, 'T'}}}},
                {.key = "CLEARDEBUG",
                 .text = "Clear &Debug Pane",
                 .enabled = Always,
                 .run = [](Commands& c) { c.clearDebug(); },
                 .keys = {{{With::CtrlAltShift, 'C'}, {With::Shift, 'C'}}}},
            });

constexpr auto ScrollKeys = std::to_array<ScrollKey>({
    {{With::Shift, key::Up}, 0, -1, true},
    {{With::Shift, key::Left}, -1, 0, true},
    {{With::Shift, key::Down}, 0, 1, true},
    {{With::Shift, key::Right}, 1, 0, true},
    {{With::AnyOther, key::Up}, 0, -1, false},
    {{With::AnyOther, key::Down}, 0, 1, false},
    {{With::AnyOther, key::Left}, -1, 0, false},
    {{With::AnyOther, key::Right}, 1, 0, false},
});

using Places = std::vector<const CommandRow*>;

/// The rows that `isThere` holds for, by their place.
template <class Predicate, class Place>
Places placed(Predicate isThere, Place place) {
    Places rows;
    for (const CommandRow& row : Rows)
        if (isThere(row))
            rows.push_back(&row);
    std::ranges::sort(rows, {}, [&](const CommandRow* row) {
        const auto& at = row->*place;
        return std::tuple(at.group, at.position);
    });
    return rows;
}

Places menuPlaces(PopupMenu menu) {
    return placed([menu](const CommandRow& row) { return row.menu.menu == menu; }, &CommandRow::menu);
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

} // namespace

bool isPressed(const Shortcut& shortcut, int16_t keyCode, int16_t shift) {
    if (shortcut.keyCode == 0 || shortcut.keyCode != keyCode)
        return false;
    if (shortcut.with == With::AnyOther)
        return shift != 1 && shift != 3 && shift != 7;
    return static_cast<int16_t>(shortcut.with) == shift;
}

std::span<const CommandRow> commandTable() {
    return Rows;
}

const CommandRow* findCommand(std::string_view key) {
    const auto* const found = std::ranges::find(Rows, key, &CommandRow::key);
    return found == Rows.end() ? nullptr : found;
}

std::string shortcutOf(const CommandRow& row) {
    const Shortcut& first = row.keys.front();
    return first.keyCode == 0 ? std::string() : prefixOf(first.with) + nameOf(first.keyCode);
}

std::span<const CommandRow* const> buttonRows() {
    static const Places rows =
        placed([](const CommandRow& row) { return row.button.group >= 0; }, &CommandRow::button);
    return rows;
}

std::span<const CommandRow* const> menuRows(PopupMenu menu) {
    static const Places ofToolbar = menuPlaces(PopupMenu::Toolbar);
    static const Places ofImage = menuPlaces(PopupMenu::Image);
    return menu == PopupMenu::Toolbar ? ofToolbar : ofImage;
}

std::span<const ScrollKey> scrollKeys() {
    return ScrollKeys;
}

} // namespace pixmo
