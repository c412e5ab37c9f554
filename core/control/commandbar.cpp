#include "core/control/commandbar.h"

#include "core/control/commandtable.h"

#include <string>

namespace pixmo {

void CommandBar::tlbImage_Init(bool thumbsAvailable, bool bookmarkAvailable) {
    toolbar_.Buttons.clear();
    for (const CommandRow* row : buttonRows()) {
        const ButtonPlace& place = row->button;
        if ((place.presence == Presence::WithThumbs && !thumbsAvailable) ||
            (place.presence == Presence::WithBookmark && !bookmarkAvailable))
            continue;
        if (place.position == 0 && !toolbar_.Buttons.empty())
            utilities_.AddToolButton(toolbar_, "sep" + std::to_string(place.group - 1), {}, {},
                                     ButtonStyle::Separator);
        utilities_.AddToolButton(toolbar_, std::string(row->key), place.toolTip, place.caption, place.style);
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
