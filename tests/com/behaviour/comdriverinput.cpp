#include "faces/com/base/widetext.h"
#include "tests/com/behaviour/comdriver.h"
#include "tests/com/behaviour/openwindows.h"
#include "tests/com/face/user.h"

#include <commctrl.h>
#include <gtest/gtest.h>

// What the user does to the control and its windows.
namespace pixmo::behaviour {

using namespace com;
using namespace com::test;

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

POINT FaceDriver::Hands::onPage(int32_t x, int32_t y) const {
    POINT place = {x, y};
    ClientToScreen(page(), &place);
    return place;
}

void FaceDriver::Hands::waitForKeyboard() const {
    const auto isHere = [this] {
        return ui.on([] {
            DWORD process = 0;
            GetWindowThreadProcessId(GetForegroundWindow(), &process);
            return process == GetCurrentProcessId() && (GetFocus() != nullptr || standingMenu() != nullptr);
        });
    };
    EXPECT_TRUE(user::sees(isHere)) << "no window has the keyboard";
}

/// A window that has just opened may lose and get back the keyboard once more, as the screen's own windows
/// come and go behind it: a click in between would be lost.
void FaceDriver::Hands::waitForNewWindow() const {
    constexpr int Looks = 5;
    HWND before = nullptr;
    int alike = 0;
    EXPECT_TRUE(user::sees([&] {
        const HWND front =
            ui.on([] { return GetForegroundWindow() == GetActiveWindow() ? GetFocus() : nullptr; });
        alike = front && front == before ? alike + 1 : 0;
        before = front;
        return alike == Looks;
    })) << "no window stays in front";
}

void FaceDriver::hold(int modifiers) {
    my_->held = modifiers;
}

void FaceDriver::press(int keyCode, int modifiers) {
    my_->press(static_cast<WORD>(keyCode), modifiers);
}

void FaceDriver::type(const std::string& text) {
    for (const char character : text) {
        const SHORT key = VkKeyScanW(static_cast<wchar_t>(character));
        my_->press(LOBYTE(key), HIBYTE(key));
    }
}

void FaceDriver::Hands::moveOnPage(int32_t x, int32_t y) {
    user::moveTo(ui.on([&] { return onPage(x, y); }));
    ui.settle();
}

bool FaceDriver::Hands::pointAt(const Find& find) {
    std::optional<POINT> pointedAt;
    // A window that has just opened may still be moved: what is under the pointer must stay there.
    return user::sees([&] {
        const std::optional<POINT> place = ui.on(find);
        const bool stays = place && pointedAt && place->x == pointedAt->x && place->y == pointedAt->y;
        if (place && !stays) {
            user::moveTo(*place);
            ui.settle();
        }
        pointedAt = place;
        return stays;
    });
}

void FaceDriver::Hands::clickAt(const Find& find, Mouse button) {
    if (!pointAt(find)) {
        ADD_FAILURE() << "there is nothing to click";
        return;
    }
    // A pointer that moves has Wine forget keys that nobody holds on the screen.
    user::hold(held, true);
    user::buttonDown(keyOf(button));
    ui.settle();
    user::buttonUp(keyOf(button));
    user::hold(held, false);
    ui.settle();
}

void FaceDriver::click(int32_t x, int32_t y, Mouse button) {
    my_->clickAt([&] { return std::optional(my_->onPage(x, y)); }, button);
}

void FaceDriver::doubleClick(int32_t x, int32_t y) {
    SetDoubleClickTime(PatientDoubleClick);
    const Hands::Find place = [&] { return std::optional(my_->onPage(x, y)); };
    my_->clickAt(place);
    my_->clickAt(place);
    SetDoubleClickTime(1);
}

void FaceDriver::drag(int32_t fromX, int32_t fromY, int32_t toX, int32_t toY, Mouse button) {
    constexpr int steps = 4;
    my_->moveOnPage(fromX, fromY);
    user::buttonDown(keyOf(button));
    my_->ui.settle();
    for (int step = 1; step <= steps; ++step)
        my_->moveOnPage(fromX + (toX - fromX) * step / steps, fromY + (toY - fromY) * step / steps);
}

void FaceDriver::release(Mouse button) {
    user::buttonUp(keyOf(button));
    my_->ui.settle();
}

void FaceDriver::wheel(int32_t x, int32_t y, int notches, int modifiers) {
    my_->moveOnPage(x, y);
    user::wheel(notches, modifiers);
    my_->ui.settle();
}

void FaceDriver::clickButton(const std::string& key) {
    my_->clickAt([&]() -> std::optional<POINT> {
        const auto shown = my_->buttons().Buttons;
        for (size_t i = 0; i < shown.size(); ++i) {
            RECT place{};
            if (shown[i].Key != key ||
                !SendMessageW(my_->toolbarWindow(), TB_GETITEMRECT, i, reinterpret_cast<LPARAM>(&place)))
                continue;
            MapWindowPoints(my_->toolbarWindow(), nullptr, reinterpret_cast<POINT*>(&place), 2);
            return middleOf(place);
        }
        return std::nullopt;
    });
}

void FaceDriver::clickReadOut() {
    my_->clickAt([this] { return placeOf(my_->statusFields().at(0)); });
}

void FaceDriver::clickHostField(const std::string& name) {
    my_->clickAt([&] { return placeOf(my_->form->field(name)); });
}

void FaceDriver::openToolbarMenu() {
    // Behind the last button.
    my_->clickAt(
        [this] {
            RECT place{};
            GetWindowRect(my_->toolbarWindow(), &place);
            return std::optional(POINT{place.right - 4, (place.top + place.bottom) / 2});
        },
        Mouse::Right);
}

void FaceDriver::openPageMenu() {
    my_->clickAt([this] { return placeOf(my_->page()); }, Mouse::Right);
}

std::optional<std::vector<ShownEntry>> FaceDriver::menu() {
    return my_->ui.on([]() -> std::optional<std::vector<ShownEntry>> {
        const HMENU menu = standingMenu();
        return menu ? std::optional(lookAtMenu(menu)) : std::nullopt;
    });
}

void FaceDriver::choose(const std::string& text) {
    my_->clickAt([&]() -> std::optional<POINT> {
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

std::optional<ShownBox> FaceDriver::answer(const std::vector<std::string>& buttons) {
    HWND box = nullptr;
    auto shown = my_->ui.on([&]() -> std::optional<ShownBox> {
        box = standingBox();
        return box ? std::optional(lookAtBox(box)) : std::nullopt;
    });
    if (!shown)
        return std::nullopt;
    my_->waitForNewWindow();
    my_->clickAt([&] { return placeOf(firstButtonOf(box, buttons)); });
    EXPECT_TRUE(user::sees([&] { return !IsWindow(box); })) << "the message box stays:\n" << shown->text;
    return shown;
}

std::string FaceDriver::dialog() {
    return my_->ui.on([] {
        const HWND window = standingDialog();
        return window ? dialogName(window) : std::string();
    });
}

std::string FaceDriver::dialogTitle() {
    return my_->ui.on([] {
        const HWND window = standingDialog();
        return window ? textOf(window) : std::string();
    });
}

std::string FaceDriver::dialogText(const std::string& field) {
    return my_->ui.on([&] {
        const HWND window = standingDialog();
        return window ? textOf(fieldOf(window, field)) : std::string();
    });
}

std::string FaceDriver::selectedText(const std::string& field) {
    return my_->ui.on([&] {
        const HWND edit = fieldOf(standingDialog(), field);
        DWORD from = 0;
        DWORD to = 0;
        SendMessageW(edit, EM_GETSEL, reinterpret_cast<WPARAM>(&from), reinterpret_cast<LPARAM>(&to));
        std::string selected = toUtf8(user::textOf(edit).substr(from, to - from));
        std::erase(selected, '\r');
        return selected;
    });
}

ShownField FaceDriver::dialogField(const std::string& field) {
    return my_->ui.on([&] {
        const HWND found = partOf(standingDialog(), field);
        return found ? ShownField{IsWindowVisible(found) != 0, IsWindowEnabled(found) != 0,
                                  SendMessageW(found, BM_GETCHECK, 0, 0) == BST_CHECKED}
                     : ShownField();
    });
}

void FaceDriver::clickDialogField(const std::string& field) {
    my_->clickAt([&] { return placeOf(partOf(standingDialog(), field)); });
}

std::pair<int32_t, int32_t> FaceDriver::dialogSize() {
    return my_->ui.on([] {
        RECT place{};
        GetWindowRect(standingDialog(), &place);
        return std::pair<int32_t, int32_t>(place.right - place.left, place.bottom - place.top);
    });
}

void FaceDriver::resizeDialog(int32_t width, int32_t height) {
    my_->ui.on(
        [&] { SetWindowPos(standingDialog(), nullptr, 0, 0, width, height, SWP_NOMOVE | SWP_NOZORDER); });
}

std::string FaceDriver::clipboardText() {
    return my_->ui.on([] {
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

void FaceDriver::setDialogText(const std::string& field, const std::string& text) {
    my_->ui.on([&] {
        const HWND edit = fieldOf(standingDialog(), field);
        SendMessageW(edit, EM_SETSEL, 0, -1);
        SendMessageW(edit, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(toWide(text).c_str()));
    });
}

void FaceDriver::pressDialogButton(const std::string& button) {
    if (button.empty()) {
        my_->ui.on([] { PostMessageW(standingDialog(), WM_SYSCOMMAND, SC_CLOSE, 0); });
        my_->ui.settle();
        return;
    }
    my_->waitForNewWindow();
    my_->clickAt([&] {
        const HWND window = standingDialog();
        return placeOf(window ? buttonOf(window, button) : nullptr);
    });
}

} // namespace pixmo::behaviour
