#include "faces/qt/widget/olecolour.h"

#include <array>

namespace pixmo::qt {

namespace {

/// The palette's role of each system colour, by its number.
constexpr std::array<QPalette::ColorRole, 25> Roles = {
    QPalette::Button,          // scroll bar
    QPalette::Mid,             // desktop
    QPalette::Highlight,       // caption of the active window
    QPalette::Mid,             // caption of an inactive window
    QPalette::Window,          // menu
    QPalette::Base,            // window
    QPalette::Shadow,          // window frame
    QPalette::WindowText,      // text of menus
    QPalette::Text,            // text of windows
    QPalette::HighlightedText, // text of captions
    QPalette::Window,          // border of the active window
    QPalette::Window,          // border of an inactive window
    QPalette::Mid,             // work space
    QPalette::Highlight,       // highlighted item
    QPalette::HighlightedText, // text of a highlighted item
    QPalette::Window,          // button face, which is also the colour of dialogs
    QPalette::Dark,            // button shadow
    QPalette::PlaceholderText, // disabled text
    QPalette::WindowText,      // button text
    QPalette::Window,          // text of inactive captions
    QPalette::Light,           // button highlight
    QPalette::Shadow,          // dark shadow
    QPalette::Midlight,        // light
    QPalette::ToolTipText,     // text of tool tips
    QPalette::ToolTipBase,     // tool tips
};

} // namespace

QColor toQColor(Colour colour, const QPalette& palette) {
    if (!colour.isSystem())
        return {static_cast<int>(colour.value & 0xFFU), static_cast<int>((colour.value >> 8U) & 0xFFU),
                static_cast<int>((colour.value >> 16U) & 0xFFU)};
    const size_t number = colour.value & 0xFFFFU;
    return palette.color(number < Roles.size() ? Roles.at(number) : QPalette::Window);
}

} // namespace pixmo::qt
