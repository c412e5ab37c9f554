#include "core/control/commandbar.h"

#include <array>
#include <string>

namespace pixmo {

namespace {

enum class Presence : uint8_t { Always, WithThumbs, WithBookmark };

struct ButtonRow {
    const char* key;
    const char* caption;
    const char* toolTip;
    ButtonStyle style;
    Presence presence;
};

constexpr ButtonRow separator(const char* key, Presence presence = Presence::Always) {
    return {key, "", "", ButtonStyle::Separator, presence};
}

constexpr ButtonRow button(const char* key, const char* caption, const char* toolTip,
                           ButtonStyle style = ButtonStyle::Default, Presence presence = Presence::Always) {
    return {key, caption, toolTip, style, presence};
}

constexpr std::array<ButtonRow, 20> ButtonRows = {{
    button("THUMBS", "Thumbs", "View thumbnails", ButtonStyle::Default, Presence::WithThumbs),
    separator("sep0", Presence::WithThumbs),
    button("PRINT", "Print", "Print document"),
    button("QUICKPRINT", "Quick Print", "Print current page"),
    button("CANCEL", "Cancel", "Cancel transfer"),
    separator("sep1"),
    button("PAN", "Pan", "Pan image", ButtonStyle::ButtonGroup),
    button("SELECTION", "Zoom", "Zoom to selection", ButtonStyle::ButtonGroup),
    separator("sep2"),
    button("ROTL", "Rotate", "Rotate left"),
    button("ROTR", "Rotate", "Rotate right"),
    separator("sep3"),
    button("PAGEPREV", "Prev", "Previous page"),
    button("PAGENEXT", "Next", "Next page"),
    button("PAGEGOTO", "Goto", "Goto page"),
    separator("sep4"),
    button("FITHEIGHT", "Fit Height", "Fit height"),
    button("FITWIDTH", "Fit Width", "Fit width"),
    separator("sep5", Presence::WithBookmark),
    button("STAR", "Bookmark", "Bookmark Page", ButtonStyle::Default, Presence::WithBookmark),
}};

} // namespace

void CommandBar::tlbImage_Init(bool thumbsAvailable, bool bookmarkAvailable) {
    toolbar_.Buttons.clear();
    for (const ButtonRow& row : ButtonRows) {
        const bool present = row.presence == Presence::Always ||
                             (row.presence == Presence::WithThumbs ? thumbsAvailable : bookmarkAvailable);
        if (present)
            utilities_.AddToolButton(toolbar_, row.key, row.toolTip, row.caption, row.style);
    }
}

void CommandBar::setStyle(bool large, bool captions) {
    cUtilities::SetToolBarStyle(toolbar_, &imlSmall_, &imlLarge_, large, captions);
}

void CommandBar::press(std::string_view key) {
    for (ToolButton& button : toolbar_.Buttons)
        if (button.Style == ButtonStyle::ButtonGroup)
            button.Pressed = button.Key == key;
}

} // namespace pixmo
