#include "faces/com/windows/popupmenu.h"

#include "faces/com/base/widetext.h"
#include "faces/com/windows/keys.h"

namespace pixmo::com {

namespace {

class Menu {
public:
    Menu() : handle_(CreatePopupMenu()) {}
    ~Menu() { DestroyMenu(handle_); }
    Menu(const Menu&) = delete;
    Menu& operator=(const Menu&) = delete;

    HMENU handle() const { return handle_; }
    void add(const MenuItem& item, UINT id) const {
        const UINT state =
            (item.enabled ? MF_ENABLED : MF_GRAYED) | (item.checked ? MF_CHECKED : MF_UNCHECKED);
        std::string text = item.text;
        if (!item.shortcut.empty())
            text += '\t' + item.shortcut;
        AppendMenuW(handle_, item.separator ? MF_SEPARATOR : MF_STRING | state, id, toWide(text).c_str());
    }

private:
    HMENU handle_;
};

} // namespace

std::string popUp(const std::vector<MenuItem>& items, POINT place, HWND owner) {
    if (items.empty())
        return {};
    const Menu menu;
    for (size_t i = 0; i < items.size(); ++i)
        menu.add(items[i], static_cast<UINT>(i + 1));
    const int chosen = TrackPopupMenuEx(menu.handle(), TPM_RETURNCMD | TPM_RIGHTBUTTON | TPM_NONOTIFY,
                                        place.x, place.y, owner, nullptr);
    return chosen > 0 ? items[static_cast<size_t>(chosen) - 1].key : std::string();
}

POINT menuPlace(LPARAM lParam, HWND window, POINT byKeyboard) {
    constexpr LPARAM Keyboard = -1;
    if (lParam != Keyboard)
        return pointOf(lParam);
    ClientToScreen(window, &byKeyboard);
    return byKeyboard;
}

} // namespace pixmo::com
