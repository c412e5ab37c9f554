#pragma once

#include "core/base/toolbar.h"
#include "core/diag/cutilities.h"

#include <cstdint>
#include <string_view>

namespace pixmo {

/// The control's toolbar `tlbImage` as data: its buttons in their order, and when each can be pressed.
class CommandBar {
public:
    explicit CommandBar(cUtilities& utilities) : utilities_(utilities) {}

    /// Empties the toolbar and adds the buttons, all of them disabled.
    void tlbImage_Init(bool thumbsAvailable, bool bookmarkAvailable);
    void setStyle(bool large, bool captions);
    /// Presses the button and releases the others of its group.
    void press(std::string_view key);

    const Toolbar& tlbImage() const { return toolbar_; }
    Toolbar& tlbImage() { return toolbar_; }

private:
    cUtilities& utilities_;
    Toolbar toolbar_;
    ImageList imlSmall_{16};
    ImageList imlLarge_{32};
};

} // namespace pixmo
