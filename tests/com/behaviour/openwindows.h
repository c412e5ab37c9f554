#pragma once

#include "tests/behaviour/facedriver.h"

#include <string>
#include <vector>
#include <windows.h>

namespace pixmo::com::test {

// The windows of a viewer that are open, as the user finds them. On the thread of the windows.

/// The window in front that has the keyboard, if it is a message box; else null.
HWND standingBox();
/// The same, if it is a dialog or a window of the viewer.
HWND standingDialog();
/// "dlgGotoPage", "" for any other window.
std::string dialogName(HWND window);
/// The menu that is open; null while none is.
HMENU standingMenu();

behaviour::ShownBox lookAtBox(HWND box);
std::vector<behaviour::ShownEntry> lookAtMenu(HMENU menu);
/// The button of that text without its mnemonic; null when there is none.
HWND buttonOf(HWND window, const std::string& text);
/// By its name; a button by its text.
HWND partOf(HWND window, const std::string& part);
/// "txtPageNumber", "" for a control of another window.
std::string fieldName(HWND window, HWND control);
/// The field of that name; fails the test when there is none.
HWND fieldOf(HWND window, const std::string& name);
/// Lines end in LF.
std::string textOf(HWND window);
std::string className(HWND window);
/// Its mark of the mnemonic taken out.
std::string plain(std::string text);

} // namespace pixmo::com::test
