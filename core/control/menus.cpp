#include "core/control/menus.h"

#include <string>

namespace pixmo {

namespace {

MenuItem itemOf(const CommandRow& row, const Commands& commands) {
    MenuItem item;
    item.name = row.menu.name;
    item.key = row.key;
    item.text = row.text;
    item.shortcut = shortcutOf(row);
    item.enabled = commands.isEnabled(row.key);
    item.checkable = row.checked != nullptr;
    item.checked = commands.isChecked(row.key);
    return item;
}

std::string separatorBefore(const MenuPlace& place) {
    return place.menu == PopupMenu::Image ? "mnuPop2Sep" + std::to_string(place.group)
                                          : "mnupopupsep" + std::to_string(place.group - 1);
}

std::vector<MenuItem> menuOf(PopupMenu menu, const Commands& commands) {
    std::vector<MenuItem> items;
    if (!commands.menusShown)
        return items;
    int8_t group = 0;
    for (const CommandRow* row : menuRows(menu)) {
        if (commands.isForbidden(row->key) || (row->menu.whileDebugging && !commands.debugShown))
            continue;
        if (row->menu.group != group && !items.empty())
            items.push_back({separatorBefore(row->menu), {}, {}, {}, true, false, false, false});
        group = row->menu.group;
        items.push_back(itemOf(*row, commands));
    }
    return items;
}

} // namespace

std::vector<MenuItem> toolbarMenu(const Commands& commands) {
    return menuOf(PopupMenu::Toolbar, commands);
}

std::vector<MenuItem> imageMenu(const Commands& commands) {
    return menuOf(PopupMenu::Image, commands);
}

} // namespace pixmo
