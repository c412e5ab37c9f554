#pragma once

#include "core/control/commands.h"

#include <string>
#include <vector>

namespace pixmo {

/// One entry of a popup menu as it is to be drawn now.
struct MenuItem {
    std::string name;     ///< "mnuPopupPan"; of a separator too
    std::string key;      ///< of its command; empty for a separator
    std::string text;     ///< "&" before the mnemonic
    std::string shortcut; ///< the keys that do the same, like "Ctrl+Shift+H"; may be empty
    bool separator = false;
    bool enabled = false;
    bool checkable = false;
    bool checked = false;
};

/// The toolbar's menu `mnuPopup1` and the menu of the image. What is forbidden is not there, nor are
/// separators with nothing to separate.
std::vector<MenuItem> toolbarMenu(const Commands& commands);
std::vector<MenuItem> imageMenu(const Commands& commands);

} // namespace pixmo
