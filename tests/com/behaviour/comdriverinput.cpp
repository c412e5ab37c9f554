#include "faces/com/base/widetext.h"
#include "tests/com/behaviour/comdriver.h"
#include "tests/com/behaviour/openwindows.h"
#include "tests/com/face/user.h"

#include <commctrl.h>
#include <gtest/gtest.h>

// What the user does to the control and its windows.
namespace pixmo::com::test {

using namespace behaviour;

namespace {

constexpr UINT PatientDoubleClick = 2000; ///< milliseconds

WORD keyOf(Mouse button) {
    return button == Mouse::Left ? VK_LBUTTON : button == Mouse::Middle ? VK_MBUTTON : VK_RBUTTON;
}

HWND firstButtonOf(HWND window, const std::vector<std::string>& texts) {
    for (const std::string& text : texts)
        if (const HWND button = buttonOf(window, text))
            return button;
    return nullptr;
}

/// The middle of a window; none while it is not to be seen.
std::optional<POINT> placeOf(HWND window) {
    return window && IsWindowVisible(window) ? std::optional(user::middleOf(window)) : std::nullopt;
}

POINT middleOf(const RECT& place) {
    return {(place.left + place.right) / 2, (place.top + place.bottom) / 2};
}

} // namespace

POINT ComDriver::onPage(int32_t x, int32_t y) const {
    POINT place = {x, y};
    ClientToScreen(page(), &place);
    return place;
}

void ComDriver::waitForKeyboard() const {
    const auto isHere = [this] {
        return ui_.on([] {
            DWORD process = 0;
            GetWindowThreadProcessId(GetForegroundWindow(), &process);
            return process == GetCurrentProcessId() && (GetFocus() != nullptr || standingMenu() != nullptr);
        });
    };
    EXPECT_TRUE(user::sees(isHere)) << "no window has the keyboard";
}

/// A window that has just opened may lose and get back the keyboard once more, as the screen's own windows
/// come and go behind it: a click in between would be lost.
void ComDriver::waitForNewWindow() const {
    constexpr int Looks = 5;
    HWND before = nullptr;
    int alike = 0;
    EXPECT_TRUE(user::sees([&] {
        const HWND front =
            ui_.on([] { return GetForegroundWindow() == GetActiveWindow() ? GetFocus() : nullptr; });
        alike = front && front == before ? alike + 1 : 0;
        before = front;
        return alike == Looks;
    })) << "no window stays in front";
}

void ComDriver::press(int keyCode, int modifiers) {
    waitForKeyboard();
    user::press(static_cast<WORD>(keyCode), modifiers);
    ui_.settle();
}

void ComDriver::type(const std::string& text) {
    for (const char character : text) {
        waitForKeyboard();
        user::type(std::wstring(1, static_cast<wchar_t>(character)));
        ui_.settle();
    }
}

void ComDriver::moveOnPage(int32_t x, int32_t y) {
    user::moveTo(ui_.on([&] { return onPage(x, y); }));
    ui_.settle();
}

bool ComDriver::pointAt(const Find& find) {
    std::optional<POINT> pointedAt;
    // A window that has just opened may still be moved: what is under the pointer must stay there.
    return user::sees([&] {
        const std::optional<POINT> place = ui_.on(find);
        const bool stays = place && pointedAt && place->x == pointedAt->x && place->y == pointedAt->y;
        if (place && !stays) {
            user::moveTo(*place);
            ui_.settle();
        }
        pointedAt = place;
        return stays;
    });
}

void ComDriver::clickAt(const Find& find, Mouse button) {
    if (!pointAt(find)) {
        ADD_FAILURE() << "there is nothing to click";
        return;
    }
    // A pointer that moves has Wine forget keys that nobody holds on the screen.
    user::hold(held_, true);
    user::buttonDown(keyOf(button));
    ui_.settle();
    user::buttonUp(keyOf(button));
    user::hold(held_, false);
    ui_.settle();
}

void ComDriver::click(int32_t x, int32_t y, Mouse button) {
    clickAt([&] { return std::optional(onPage(x, y)); }, button);
}

void ComDriver::doubleClick(int32_t x, int32_t y) {
    SetDoubleClickTime(PatientDoubleClick);
    const Find place = [&] { return std::optional(onPage(x, y)); };
    clickAt(place);
    clickAt(place);
    SetDoubleClickTime(1);
}

void ComDriver::drag(int32_t fromX, int32_t fromY, int32_t toX, int32_t toY, Mouse button) {
    constexpr int steps = 4;
    moveOnPage(fromX, fromY);
    user::buttonDown(keyOf(button));
    ui_.settle();
    for (int step = 1; step <= steps; ++step)
        moveOnPage(fromX + (toX - fromX) * step / steps, fromY + (toY - fromY) * step / steps);
}

void ComDriver::release(Mouse button) {
    user::buttonUp(keyOf(button));
    ui_.settle();
}

void ComDriver::wheel(int32_t x, int32_t y, int notches, int modifiers) {
    moveOnPage(x, y);
    user::wheel(notches, modifiers);
    ui_.settle();
}

void ComDriver::clickButton(const std::string& key) {
    clickAt([&]() -> std::optional<POINT> {
        const auto buttons = this->buttons().Buttons;
        for (size_t i = 0; i < buttons.size(); ++i) {
            RECT place{};
            if (buttons[i].Key != key ||
                !SendMessageW(toolbarWindow(), TB_GETITEMRECT, i, reinterpret_cast<LPARAM>(&place)))
                continue;
            MapWindowPoints(toolbarWindow(), nullptr, reinterpret_cast<POINT*>(&place), 2);
            return middleOf(place);
        }
        return std::nullopt;
    });
}

void ComDriver::clickReadOut() {
    clickAt([this] { return placeOf(statusFields().at(0)); });
}

void ComDriver::clickHostField(const std::string& name) {
    clickAt([&] { return placeOf(form_->field(name)); });
}

void ComDriver::openToolbarMenu() {
    // Behind the last button.
    clickAt(
        [this] {
            RECT place{};
            GetWindowRect(toolbarWindow(), &place);
            return std::optional(POINT{place.right - 4, (place.top + place.bottom) / 2});
        },
        Mouse::Right);
}

void ComDriver::openPageMenu() {
    clickAt([this] { return placeOf(page()); }, Mouse::Right);
}

std::optional<std::vector<ShownEntry>> ComDriver::menu() {
    return ui_.on([]() -> std::optional<std::vector<ShownEntry>> {
        const HMENU menu = standingMenu();
        return menu ? std::optional(lookAtMenu(menu)) : std::nullopt;
    });
}

void ComDriver::choose(const std::string& text) {
    clickAt([&]() -> std::optional<POINT> {
        const HMENU menu = standingMenu();
        if (!menu)
            return std::nullopt;
        const std::vector<ShownEntry> entries = lookAtMenu(menu);
        for (size_t i = 0; i < entries.size(); ++i) {
            RECT place{};
            if (entries[i].text == text && GetMenuItemRect(nullptr, menu, static_cast<UINT>(i), &place))
                return middleOf(place);
        }
        return std::nullopt;
    });
}

std::optional<ShownBox> ComDriver::answer(const std::vector<std::string>& buttons) {
    HWND box = nullptr;
    auto shown = ui_.on([&]() -> std::optional<ShownBox> {
        box = standingBox();
        return box ? std::optional(lookAtBox(box)) : std::nullopt;
    });
    if (!shown)
        return std::nullopt;
    waitForNewWindow();
    clickAt([&] { return placeOf(firstButtonOf(box, buttons)); });
    EXPECT_TRUE(user::sees([&] { return !IsWindow(box); })) << "the message box stays:\n" << shown->text;
    return shown;
}

std::string ComDriver::dialog() {
    return ui_.on([] {
        const HWND window = standingDialog();
        return window ? dialogName(window) : std::string();
    });
}

std::string ComDriver::dialogTitle() {
    return ui_.on([] {
        const HWND window = standingDialog();
        return window ? textOf(window) : std::string();
    });
}

std::string ComDriver::dialogText(const std::string& field) {
    return ui_.on([&] {
        const HWND window = standingDialog();
        return window ? textOf(fieldOf(window, field)) : std::string();
    });
}

std::string ComDriver::selectedText(const std::string& field) {
    return ui_.on([&] {
        const HWND edit = fieldOf(standingDialog(), field);
        DWORD from = 0;
        DWORD to = 0;
        SendMessageW(edit, EM_GETSEL, reinterpret_cast<WPARAM>(&from), reinterpret_cast<LPARAM>(&to));
        std::string selected = toUtf8(user::textOf(edit).substr(from, to - from));
        std::erase(selected, '\r');
        return selected;
    });
}

ShownField ComDriver::dialogField(const std::string& field) {
    return ui_.on([&] {
        const HWND found = partOf(standingDialog(), field);
        return found ? ShownField{IsWindowVisible(found) != 0, IsWindowEnabled(found) != 0,
                                  SendMessageW(found, BM_GETCHECK, 0, 0) == BST_CHECKED}
                     : ShownField();
    });
}

void ComDriver::clickDialogField(const std::string& field) {
    clickAt([&] { return placeOf(partOf(standingDialog(), field)); });
}

std::pair<int32_t, int32_t> ComDriver::dialogSize() {
    return ui_.on([] {
        RECT place{};
        GetWindowRect(standingDialog(), &place);
        return std::pair<int32_t, int32_t>(place.right - place.left, place.bottom - place.top);
    });
}

void ComDriver::resizeDialog(int32_t width, int32_t height) {
    ui_.on([&] { SetWindowPos(standingDialog(), nullptr, 0, 0, width, height, SWP_NOMOVE | SWP_NOZORDER); });
}

std::string ComDriver::clipboardText() {
    return ui_.on([] {
        std::string text;
        if (!OpenClipboard(nullptr))
            return text;
        if (const HANDLE block = GetClipboardData(CF_UNICODETEXT)) {
            text = toUtf8(static_cast<const wchar_t*>(GlobalLock(block)));
            GlobalUnlock(block);
        }
        CloseClipboard();
        std::erase(text, '\r');
        return text;
    });
}

void ComDriver::setDialogText(const std::string& field, const std::string& text) {
    ui_.on([&] {
        const HWND edit = fieldOf(standingDialog(), field);
        SendMessageW(edit, EM_SETSEL, 0, -1);
        SendMessageW(edit, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(toWide(text).c_str()));
    });
}

void ComDriver::pressDialogButton(const std::string& button) {
    if (button.empty()) {
        ui_.on([] { PostMessageW(standingDialog(), WM_SYSCOMMAND, SC_CLOSE, 0); });
        ui_.settle();
        return;
    }
    waitForNewWindow();
    clickAt([&] {
        const HWND window = standingDialog();
        return placeOf(window ? buttonOf(window, button) : nullptr);
    });
}

} // namespace pixmo::com::test
