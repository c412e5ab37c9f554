#include "core/control/menus.h"

#include <array>
#include <span>

namespace pixmo {

namespace {

struct Row {
    const char* name;
    const char* key; ///< nullptr: a separator
};

constexpr std::array<Row, 4> ToolbarRows = {{{"mnuPopup1ButtonCaptions", "BUTTONCAPTIONS"},
                                             {"mnupopupsep0", nullptr},
                                             {"mnuPopup1LargeButtons", "LARGEBUTTONS"},
                                             {"mnuPopup1SmallButtons", "SMALLBUTTONS"}}};

constexpr std::array<Row, 15> ImageRows = {{{"mnuPopupPan", "PAN"},
                                            {"mnuPopupSelect", "SELECTION"},
                                            {"mnuPop2Sep1", nullptr},
                                            {"mnuPopupFitBest", "FITBEST"},
                                            {"mnuPopupFitHeight", "FITHEIGHT"},
                                            {"mnuPopupFitWidth", "FITWIDTH"},
                                            {"mnuPopupGrayscale", "GRAYSCALE"},
                                            {"mnuPop2Sep2", nullptr},
                                            {"mnuPopupCopy", "COPY"},
                                            {"mnuPopupSavePage", "SAVEPAGE"},
                                            {"mnuPopupPrint", "PRINT"},
                                            {"mnuPop2Sep3", nullptr},
                                            {"mnuPopupImageInfo", "IMAGEINFO"},
                                            {"mnuPopupAbout", "ABOUT"},
                                            {"mnuDebug", "SHOWLOG"}}};

MenuItem itemOf(const Row& row, const Commands& commands) {
    const CommandRow& command = *Commands::find(row.key);
    MenuItem item;
    item.name = row.name;
    item.key = row.key;
    item.text = command.text;
    item.shortcut = Commands::shortcutOf(row.key);
    item.enabled = commands.isEnabled(row.key);
    item.checkable = command.checked != nullptr;
    item.checked = commands.isChecked(row.key);
    return item;
}

bool isThere(const Row& row, const Commands& commands) {
    const bool needsDebugging = std::string_view(row.name) == "mnuDebug";
    return !commands.isForbidden(row.key) && (!needsDebugging || commands.debugShown);
}

std::vector<MenuItem> menuOf(std::span<const Row> rows, const Commands& commands) {
    std::vector<MenuItem> items;
    if (!commands.menusShown)
        return items;
    const Row* separator = nullptr;
    for (const Row& row : rows) {
        if (!row.key) {
            separator = items.empty() ? nullptr : &row;
        } else if (isThere(row, commands)) {
            if (separator) {
                items.push_back({separator->name, {}, {}, {}, true, false, false, false});
                separator = nullptr;
            }
            items.push_back(itemOf(row, commands));
        }
    }
    return items;
}

} // namespace

std::vector<MenuItem> toolbarMenu(const Commands& commands) {
    return menuOf(ToolbarRows, commands);
}

std::vector<MenuItem> imageMenu(const Commands& commands) {
    return menuOf(ImageRows, commands);
}

} // namespace pixmo
