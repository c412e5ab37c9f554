#pragma once

#include "core/base/menu.h"

#include <string>
#include <vector>
#include <windows.h>

namespace pixmo::com {

/// Shows the menu and waits; the key of what was chosen, "" for nothing. Nothing opens without an item.
std::string popUp(const std::vector<MenuItem>& items, POINT place, HWND owner);

/// Where the menu that a WM_CONTEXTMENU asks for opens: at the pointer or, asked for by keyboard, at the
/// given place of the window.
POINT menuPlace(LPARAM lParam, HWND window, POINT byKeyboard);

} // namespace pixmo::com
