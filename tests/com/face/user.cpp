#include "tests/com/face/user.h"

#include <array>
#include <atomic>
#include <gtest/gtest.h>
#include <thread>
#include <vector>

namespace pixmo::com::user {

namespace {

constexpr int MostLooks = 1500;
constexpr DWORD LookInterval = 10; ///< milliseconds
constexpr std::array<WORD, 3> ShiftKeys = {VK_SHIFT, VK_CONTROL, VK_MENU};

void send(const INPUT& input) {
    INPUT copy = input;
    SendInput(1, &copy, sizeof copy);
}

void sendKey(WORD virtualKey, bool down) {
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = virtualKey;
    input.ki.dwFlags = down ? 0 : KEYEVENTF_KEYUP;
    send(input);
}

void sendMouse(DWORD flags, DWORD data = 0) {
    INPUT input{};
    input.type = INPUT_MOUSE;
    input.mi.dwFlags = flags;
    input.mi.mouseData = data;
    send(input);
}

void sendShift(int shiftState, bool down) {
    for (size_t i = 0; i < ShiftKeys.size(); ++i)
        if ((shiftState >> i & 1) != 0)
            sendKey(ShiftKeys.at(i), down);
}

} // namespace

void act(FaceHostWindow& host, const std::function<void()>& deeds, const std::function<void()>& meanwhile) {
    std::atomic<bool> done = false;
    std::thread thread([&] {
        deeds();
        done = true;
    });
    if (meanwhile)
        meanwhile();
    EXPECT_TRUE(pumpUntil(host, [&] { return done.load(); }));
    thread.join();
    // What was pressed last is still on its way through the message queue.
    EXPECT_TRUE(pumpUntil(host, [] { return GetQueueStatus(QS_INPUT) == 0; }));
}

bool sees(const std::function<bool()>& condition) {
    for (int look = 0; look < MostLooks; ++look) {
        if (condition())
            return true;
        Sleep(LookInterval);
    }
    return false;
}

void press(WORD virtualKey, int shiftState) {
    sendShift(shiftState, true);
    sendKey(virtualKey, true);
    sendKey(virtualKey, false);
    sendShift(shiftState, false);
}

void type(const std::wstring& text) {
    for (const wchar_t character : text) {
        const SHORT key = VkKeyScanW(character);
        press(LOBYTE(key), HIBYTE(key));
    }
}

void moveTo(POINT screen) {
    SetCursorPos(screen.x, screen.y);
    sendMouse(MOUSEEVENTF_MOVE);
}

void click(POINT screen, bool right) {
    moveTo(screen);
    sendMouse(right ? MOUSEEVENTF_RIGHTDOWN : MOUSEEVENTF_LEFTDOWN);
    sendMouse(right ? MOUSEEVENTF_RIGHTUP : MOUSEEVENTF_LEFTUP);
}

void doubleClick(POINT screen) {
    click(screen);
    click(screen);
}

void buttonDown() {
    sendMouse(MOUSEEVENTF_LEFTDOWN);
}

void buttonUp() {
    sendMouse(MOUSEEVENTF_LEFTUP);
}

void wheel(int notches, int shiftState) {
    sendShift(shiftState, true);
    sendMouse(MOUSEEVENTF_WHEEL, static_cast<DWORD>(notches * WHEEL_DELTA));
    sendShift(shiftState, false);
}

HWND findWindow(const wchar_t* className, const wchar_t* title) {
    HWND found = nullptr;
    while ((found = FindWindowExW(nullptr, found, className, title)) != nullptr) {
        DWORD process = 0;
        GetWindowThreadProcessId(found, &process);
        if (process == GetCurrentProcessId() && IsWindowVisible(found))
            return found;
    }
    return nullptr;
}

std::wstring textOf(HWND window) {
    std::wstring text(static_cast<size_t>(SendMessageW(window, WM_GETTEXTLENGTH, 0, 0)), L'\0');
    SendMessageW(window, WM_GETTEXT, text.size() + 1, reinterpret_cast<LPARAM>(text.data()));
    return text;
}

POINT middleOf(HWND window) {
    RECT place{};
    GetWindowRect(window, &place);
    return {(place.left + place.right) / 2, (place.top + place.bottom) / 2};
}

} // namespace pixmo::com::user
