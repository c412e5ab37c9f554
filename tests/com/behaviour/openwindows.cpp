#include "tests/com/behaviour/openwindows.h"

#include "faces/com/base/widetext.h"
#include "faces/com/windows/dialogwindow.h"
#include "tests/com/face/user.h"

#include <array>
#include <gtest/gtest.h>

namespace pixmo::com::test {

namespace {

constexpr const char* DialogClass = "#32770";
constexpr const wchar_t* MenuClass = L"#32768";

struct BoxIcon {
    LPCWSTR icon;
    const char* name;
};

std::string iconName(HWND picture) {
    const auto shown = reinterpret_cast<HICON>(SendMessageW(picture, STM_GETICON, 0, 0));
    for (const BoxIcon& each : {BoxIcon{IDI_EXCLAMATION, "exclamation"}, BoxIcon{IDI_HAND, "critical"},
                                BoxIcon{IDI_ASTERISK, "information"}, BoxIcon{IDI_QUESTION, "question"}})
        if (shown == LoadIconW(nullptr, each.icon))
            return each.name;
    return {};
}

/// The children of that class, in the order of the window.
std::vector<HWND> children(HWND window, const wchar_t* kind) {
    std::vector<HWND> found;
    for (HWND child = nullptr; (child = FindWindowExW(window, child, kind, nullptr)) != nullptr;)
        found.push_back(child);
    return found;
}

} // namespace

std::string className(HWND window) {
    wchar_t name[64] = {};
    GetClassNameW(window, name, 64);
    return toUtf8(name);
}

std::string textOf(HWND window) {
    std::string text = toUtf8(user::textOf(window));
    std::erase(text, '\r');
    return text;
}

std::string plain(std::string text) {
    std::erase(text, '&');
    return text;
}

std::string dialogName(HWND window) {
    if (className(window) == "Pixmo.ThumbnailWindow")
        return "dlgThumbs";
    if (className(window) != DialogClass)
        return {};
    const auto* const dialog = dynamic_cast<const DialogWindow*>(ModalDialog::of(window));
    return dialog ? dialog->name() : std::string();
}

HWND standingBox() {
    const HWND window = GetActiveWindow();
    const bool isBox = window && className(window) == DialogClass && dialogName(window).empty();
    return isBox && IsWindowVisible(window) ? window : nullptr;
}

HWND standingDialog() {
    const HWND window = GetActiveWindow();
    return window && IsWindowVisible(window) && !dialogName(window).empty() ? window : nullptr;
}

HMENU standingMenu() {
    const HWND window = user::findWindow(MenuClass);
    return window ? reinterpret_cast<HMENU>(SendMessageW(window, MN_GETHMENU, 0, 0)) : nullptr;
}

behaviour::ShownBox lookAtBox(HWND box) {
    behaviour::ShownBox shown;
    for (const HWND part : children(box, L"Static")) {
        if ((GetWindowLongPtrW(part, GWL_STYLE) & SS_TYPEMASK) == SS_ICON)
            shown.icon = iconName(part);
        else
            shown.text += textOf(part);
    }
    for (const HWND button : children(box, L"Button"))
        if (IsWindowVisible(button))
            shown.buttons.push_back(plain(textOf(button)));
    return shown;
}

std::vector<behaviour::ShownEntry> lookAtMenu(HMENU menu) {
    std::vector<behaviour::ShownEntry> entries;
    for (int i = 0; i < GetMenuItemCount(menu); ++i) {
        wchar_t text[128] = {};
        MENUITEMINFOW info{};
        info.cbSize = sizeof info;
        info.fMask = MIIM_FTYPE | MIIM_STATE | MIIM_STRING;
        info.dwTypeData = text;
        info.cch = 128;
        GetMenuItemInfoW(menu, static_cast<UINT>(i), TRUE, &info);
        const std::string line = toUtf8(text);
        const size_t tab = line.find('\t');
        entries.push_back({line.substr(0, tab), tab == std::string::npos ? "" : line.substr(tab + 1),
                           (info.fType & MFT_SEPARATOR) != 0, (info.fState & MFS_GRAYED) == 0,
                           (info.fState & MFS_CHECKED) != 0});
    }
    return entries;
}

HWND buttonOf(HWND window, const std::string& text) {
    for (const HWND button : children(window, L"Button"))
        if (IsWindowVisible(button) && plain(textOf(button)) == text)
            return button;
    return nullptr;
}

HWND fieldOf(HWND window, const std::string& name) {
    if (const auto* const dialog = dynamic_cast<const DialogWindow*>(ModalDialog::of(window)))
        if (const HWND found = dialog->field(name))
            return found;
    ADD_FAILURE() << "no field " << name;
    return nullptr;
}

HWND partOf(HWND window, const std::string& part) {
    const auto* const dialog = dynamic_cast<const DialogWindow*>(ModalDialog::of(window));
    const HWND named = dialog ? dialog->field(part) : nullptr;
    return named ? named : buttonOf(window, part);
}

std::string fieldName(HWND window, HWND control) {
    const auto* const dialog = dynamic_cast<const DialogWindow*>(ModalDialog::of(window));
    return dialog ? dialog->nameOf(control) : std::string();
}

} // namespace pixmo::com::test
