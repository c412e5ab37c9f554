#pragma once

#include "core/base/toolbar.h"
#include "core/diag/cutilities.h"

#include <cstdint>
#include <string_view>

namespace pixmo {

/// What decides which commands can be given.
struct CommandFacts {
    bool thumbsAvailable = false;
    bool bookmarkAvailable = false;
    bool pageDisplayed = false;
    bool transferPending = false;
    int16_t page = 0;
    int16_t pageCount = 0;
};

/// The control's toolbar `tlbImage` as data: its buttons in their order, and when each can be pressed.
class CommandBar {
public:
    explicit CommandBar(cUtilities& utilities) : utilities_(utilities) {}

    /// Empties the toolbar and adds the buttons; all are disabled until they are refreshed.
    void tlbImage_Init(bool thumbsAvailable, bool bookmarkAvailable);
    void setStyle(bool large, bool captions);
    void refresh(const CommandFacts& facts);

    const Toolbar& tlbImage() const { return toolbar_; }
    Toolbar& tlbImage() { return toolbar_; }
    static bool isEnabled(std::string_view key, const CommandFacts& facts);

private:
    cUtilities& utilities_;
    Toolbar toolbar_;
    ImageList imlSmall_{16};
    ImageList imlLarge_{32};
};

} // namespace pixmo
