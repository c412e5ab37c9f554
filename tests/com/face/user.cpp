#include "tests/com/face/user.h"

#include "core/base/product.h"
#include "faces/com/base/widetext.h"

#include <array>
#include <shlwapi.h>

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

struct ButtonFlags {
    DWORD down;
    DWORD up;
};

ButtonFlags flagsOf(WORD button) {
    if (button == VK_RBUTTON)
        return {MOUSEEVENTF_RIGHTDOWN, MOUSEEVENTF_RIGHTUP};
    if (button == VK_MBUTTON)
        return {MOUSEEVENTF_MIDDLEDOWN, MOUSEEVENTF_MIDDLEUP};
    return {MOUSEEVENTF_LEFTDOWN, MOUSEEVENTF_LEFTUP};
}

} // namespace

bool sees(const std::function<bool()>& condition) {
    for (int look = 0; look < MostLooks; ++look) {
        if (condition())
            return true;
        Sleep(LookInterval);
    }
    return false;
}

void forgetSettings() {
    const std::wstring key = L"Software\\VB and VBA Program Settings\\" + toWide(product::ApplicationName);
    SHDeleteKeyW(HKEY_CURRENT_USER, key.c_str());
}

void hold(int shiftState, bool down) {
    for (size_t i = 0; i < ShiftKeys.size(); ++i)
        if ((shiftState >> i & 1) != 0)
            sendKey(ShiftKeys.at(i), down);
}

void press(WORD virtualKey, int shiftState) {
    hold(shiftState, true);
    sendKey(virtualKey, true);
    sendKey(virtualKey, false);
    hold(shiftState, false);
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
    const WORD button = right ? VK_RBUTTON : VK_LBUTTON;
    moveTo(screen);
    buttonDown(button);
    buttonUp(button);
}

void doubleClick(POINT screen) {
    click(screen);
    click(screen);
}

void buttonDown(WORD button) {
    sendMouse(flagsOf(button).down);
}

void buttonUp(WORD button) {
    sendMouse(flagsOf(button).up);
}

void wheel(int notches, int shiftState) {
    hold(shiftState, true);
    sendMouse(MOUSEEVENTF_WHEEL, static_cast<DWORD>(notches) * WHEEL_DELTA);
    hold(shiftState, false);
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
