#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace pixmo {

enum class ButtonStyle : int32_t { Default = 0, Check = 1, ButtonGroup = 2, Separator = 3, Placeholder = 4 };

/// One keyed entry of a toolbar, as data; a face draws it and reports clicks by key.
struct ToolButton {
    std::string Key;
    std::string ToolTipText;
    std::string Description;
    std::string Caption; ///< the description while captions are shown, else empty
    std::string Image;   ///< key in the toolbar's image list
    ButtonStyle Style = ButtonStyle::Default;
    bool Enabled = true;
    bool Visible = true;
    bool Pressed = false;
};

/// Pictures of one size, looked up by the key of the button.
struct ImageList {
    int32_t size = 0; ///< width and height in device-independent pixels
};

struct Toolbar {
    std::vector<ToolButton> Buttons;
    const ImageList* Images = nullptr;

    ToolButton* find(std::string_view key);
    const ToolButton* find(std::string_view key) const;
};

} // namespace pixmo
