#pragma once

#include "tests/com/face/facehostwindow.h"

#include <functional>
#include <string>
#include <windows.h>

namespace pixmo::com {

/// Who sits before the screen: input goes the way of real keyboards and mice, on a thread of its own, while
/// the window's thread handles its messages.
namespace user {

/// Runs what the user does and waits for its end, handling the window's messages all the time. `meanwhile` is
/// done on the window's thread at once; it may open a modal window. Fails the test when it takes too long.
void act(FaceHostWindow& host, const std::function<void()>& deeds,
         const std::function<void()>& meanwhile = {});

/// All for the user's thread from here on. Waits until so; false when that takes too long.
bool sees(const std::function<bool()>& condition);

void press(WORD virtualKey, int shiftState = 0);
void type(const std::wstring& text);
void moveTo(POINT screen);
void click(POINT screen, bool right = false);
void doubleClick(POINT screen);
void buttonDown();
void buttonUp();
void wheel(int notches, int shiftState = 0);

/// The topmost window of that class, of this process; nullptr when there is none.
HWND findWindow(const wchar_t* className, const wchar_t* title = nullptr);
std::wstring textOf(HWND window);
/// The middle of a window, on the screen.
POINT middleOf(HWND window);

} // namespace user

} // namespace pixmo::com
