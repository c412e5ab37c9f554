#include "core/base/toolbar.h"

#include <algorithm>

namespace pixmo {

const ToolButton* Toolbar::find(std::string_view key) const {
    const auto found = std::find_if(Buttons.begin(), Buttons.end(),
                                    [key](const ToolButton& button) { return button.Key == key; });
    return found == Buttons.end() ? nullptr : &*found;
}

ToolButton* Toolbar::find(std::string_view key) {
    return const_cast<ToolButton*>(static_cast<const Toolbar*>(this)->find(key));
}

} // namespace pixmo
