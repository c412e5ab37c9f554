#include "core/thumbs/dlgthumbs.h"

#include <algorithm>
#include <array>
#include <span>

// Toolbar and menus of the thumbnail window.
namespace pixmo {

struct ThumbCommandTable {
    using T = dlgThumbs;
    struct Row {
        const char* key;
        const char* text; ///< "&" before the mnemonic
        const char* shortcut;
        bool (*enabled)(const dlgThumbs&);
        bool dlgThumbs::*flag; ///< what the command turns on and off; nullptr: it does something
        void (dlgThumbs::*run)();
    };

    static bool always(const T&) { return true; }
    static bool canGrow(const T& t) { return t.itemSizeFactor() < T::LargestFactor; }
    static bool canShrink(const T& t) { return t.itemSizeFactor() > T::SmallestFactor; }
    static bool hasItems(const T& t) { return t.grid().itemCount() > 0; }
    static bool canPrint(const T& t) { return t.canPrintSelection(); }

    static constexpr std::array<Row, 7> Rows = {{
        {"LARGER", "&Larger", "Ctrl++", canGrow, nullptr, &T::larger},
        {"SMALLER", "&Smaller", "Ctrl+-", canShrink, nullptr, &T::smaller},
        {"SELECTALL", "Select &All", "Ctrl+A", hasItems, nullptr, &T::selectAll},
        {"PRINT", "&Print Selection\u2026", "Ctrl+P", canPrint, nullptr, &T::printSelection},
        {"BUTTONCAPTIONS", "Button &Captions", "", always, &T::mnuPopup1ButtonCaptions, nullptr},
        {"LARGEBUTTONS", "&Large Buttons", "", always, &T::mnuPopup1LargeButtons, nullptr},
        {"TOOLBAR", "&Toolbar", "", always, &T::mnuPopToolbar, nullptr},
    }};

    static const Row* find(std::string_view key) {
        const auto* const found =
            std::find_if(Rows.begin(), Rows.end(), [key](const Row& row) { return row.key == key; });
        return found == Rows.end() ? nullptr : found;
    }
};

namespace {

constexpr ImageList LargeImages{32};
constexpr ImageList SmallImages{16};

/// "" stands for a separator.
constexpr std::array<const char*, 5> ToolbarKeys = {"LARGER", "SMALLER", "", "PRINT", "SELECTALL"};
constexpr std::array<const char*, 2> ToolbarMenuKeys = {"BUTTONCAPTIONS", "LARGEBUTTONS"};
constexpr std::array<const char*, 7> ViewMenuKeys = {"LARGER", "SMALLER", "",       "SELECTALL",
                                                     "PRINT",  "",        "TOOLBAR"};

/// A menu's text as a button's: without mnemonic and dots.
std::string caption(std::string text) {
    const std::string dots = "\u2026";
    std::erase(text, '&');
    if (text.ends_with(dots))
        text.resize(text.size() - dots.size());
    return text;
}

MenuItem itemOf(const dlgThumbs& thumbs, const char* key) {
    const ThumbCommandTable::Row* const row = ThumbCommandTable::find(key);
    MenuItem item;
    item.separator = !row;
    if (!row)
        return item;
    item.key = row->key;
    item.text = row->text;
    item.shortcut = row->shortcut;
    item.enabled = row->enabled(thumbs);
    item.checkable = row->flag != nullptr;
    item.checked = row->flag && thumbs.*(row->flag);
    return item;
}

std::vector<MenuItem> menuOf(const dlgThumbs& thumbs, std::span<const char* const> keys) {
    std::vector<MenuItem> items;
    for (const char* const key : keys)
        items.push_back(itemOf(thumbs, key));
    return items;
}

} // namespace

Toolbar dlgThumbs::toolbar() const {
    Toolbar toolbar;
    toolbar.Images = mnuPopup1LargeButtons ? &LargeImages : &SmallImages;
    for (const char* const key : ToolbarKeys) {
        const MenuItem item = itemOf(*this, key);
        ToolButton button;
        button.Key = item.separator ? "sep0" : item.key;
        button.Description = caption(item.text);
        button.ToolTipText = button.Description;
        button.Image = button.Key;
        if (mnuPopup1ButtonCaptions)
            button.Caption = button.Description;
        button.Style = item.separator ? ButtonStyle::Separator : ButtonStyle::Default;
        button.Enabled = item.enabled;
        toolbar.Buttons.push_back(button);
    }
    return toolbar;
}

std::vector<MenuItem> dlgThumbs::toolbarMenu() const {
    return menuOf(*this, ToolbarMenuKeys);
}

std::vector<MenuItem> dlgThumbs::viewMenu() const {
    return menuOf(*this, ViewMenuKeys);
}

void dlgThumbs::run(std::string_view key) {
    const ThumbCommandTable::Row* const row = ThumbCommandTable::find(key);
    if (!row || !row->enabled(*this))
        return;
    if (row->flag) {
        this->*(row->flag) = !(this->*(row->flag));
        changed();
    } else {
        (this->*(row->run))();
    }
}

} // namespace pixmo
