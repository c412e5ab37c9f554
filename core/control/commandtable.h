#pragma once

#include "core/base/toolbar.h"

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace pixmo {

class Commands;

/// What decides which commands can be given.
struct CommandFacts {
    bool pageDisplayed = false;
    bool transferPending = false;
    bool printing = false;
    bool canPrint = false;
    bool canShowThumbs = false;
    int16_t page = 0;
    int16_t pageCount = 0;
};

/// When the host lets a button be there.
enum class Presence : uint8_t { Always, WithThumbs, WithBookmark };

/// Where the command's button stands in the toolbar. Groups stand in their order, separators between them.
struct ButtonPlace {
    int8_t group = -1; ///< none: the command has no button
    int8_t position = 0;
    const char* caption = "";
    const char* toolTip = "";
    ButtonStyle style = ButtonStyle::Default;
    Presence presence = Presence::Always;
};

enum class PopupMenu : uint8_t { None, Toolbar, Image };

/// Where the command stands in a popup menu; groups as in the toolbar.
struct MenuPlace {
    PopupMenu menu = PopupMenu::None;
    int8_t group = 0;
    int8_t position = 0;
    const char* name = ""; ///< of the item: "mnuPopupPan"
    bool whileDebugging = false;
};

/// Which states of Shift, Ctrl and Alt a key is meant with.
enum class With : int8_t { Nothing = 0, Shift = 1, Ctrl = 2, CtrlShift = 3, CtrlAltShift = 7, AnyOther = -1 };

struct Shortcut {
    With with = With::Nothing;
    int16_t keyCode = 0; ///< virtual-key code; 0: none
};

/// `shift` is the sum of 1 Shift, 2 Ctrl, 4 Alt.
bool isPressed(const Shortcut& shortcut, int16_t keyCode, int16_t shift);

/// One command, and all ways to give it: button, menu item, key or host.
struct CommandRow {
    std::string_view key;
    const char* text; ///< as a menu names it, "&" before its mnemonic
    bool (*enabled)(const CommandFacts&);
    void (*run)(Commands&);
    bool (*checked)(const Commands&) = nullptr; ///< nullptr: has no check mark
    ButtonPlace button = {};
    MenuPlace menu = {};
    std::array<Shortcut, 2> keys = {};
    /// What a key does where that is more than `run`: told which of the keys. Asked whether the command is
    /// enabled it is not.
    void (*byKey)(Commands&, With) = nullptr;
};

/// Every command, once.
std::span<const CommandRow> commandTable();
/// nullptr for a key that is no command's.
const CommandRow* findCommand(std::string_view key);
/// The keys that give the command, like "Ctrl+Shift+H"; "" for none.
std::string shortcutOf(const CommandRow& row);

/// The rows with a button, or of a menu, in the order in which they stand there.
std::span<const CommandRow* const> buttonRows();
std::span<const CommandRow* const> menuRows(PopupMenu menu);

/// A key that moves the picture instead of giving a command.
struct ScrollKey {
    Shortcut shortcut;
    int8_t x; ///< steps, or with `toEdge` the sign of the edge
    int8_t y;
    bool toEdge;
};
std::span<const ScrollKey> scrollKeys();

} // namespace pixmo
