#pragma once

#include <functional>
#include <string>
#include <windows.h>

namespace pixmo::com {

/// Who sits before the screen: input goes the way of real keyboards and mice, on a thread of its own, while
/// the window's thread handles its messages.
namespace user {

// All for the user's thread.

/// Waits until so; false when that takes too long.
bool sees(const std::function<bool()>& condition);

/// The settings are those of a new user.
void forgetSettings();

/// Shift, Ctrl and Alt, summed as in messages.
void hold(int shiftState, bool down);
void press(WORD virtualKey, int shiftState = 0);
void type(const std::wstring& text);
void moveTo(POINT screen);
void click(POINT screen, bool right = false);
void doubleClick(POINT screen);
/// VK_LBUTTON, VK_MBUTTON or VK_RBUTTON.
void buttonDown(WORD button = VK_LBUTTON);
void buttonUp(WORD button = VK_LBUTTON);
void wheel(int notches, int shiftState = 0);

/// The topmost window of that class, of this process; nullptr when there is none.
HWND findWindow(const wchar_t* className, const wchar_t* title = nullptr);
std::wstring textOf(HWND window);
/// The middle of a window, on the screen.
POINT middleOf(HWND window);

} // namespace user

} // namespace pixmo::com
