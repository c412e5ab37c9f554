#pragma once

#include <string>

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

} // namespace pixmo
