#include "core/base/partnames.h"
#include "core/base/text.h"
#include "core/thumbs/dlgthumbs.h"

// What the thumbnail window says, to assistive programs too.
namespace pixmo {

std::string dlgThumbs::Caption() const {
    const std::string title = part_name::Thumbnails;
    return shownDocument_ == 0 ? title : title + " \u2013 Document " + std::to_string(shownDocument_);
}

std::string dlgThumbs::notice() const {
    if (grid_.itemCount() > 0)
        return {};
    return shownDocument_ == 0 ? "No document is loaded." : "The pages are being counted\u2026";
}

std::string dlgThumbs::name(int16_t page) {
    return "Page " + std::to_string(page);
}

std::string dlgThumbs::tip(int16_t page) const {
    if (state(page) != ThumbState::Failed)
        return name(page);
    return name(page) + ": " + reason(page) + std::string(LineBreak) + "Click to try again.";
}

std::string dlgThumbs::tipAt(double x, double y) const {
    const int16_t page = pageAt(x, y);
    return page == 0 ? std::string() : tip(page);
}

std::string dlgThumbs::description(int16_t page) const {
    if (state(page) == ThumbState::Failed)
        return tip(page);
    return page == currentPage() ? "Shown in the viewer" : "";
}

dlgThumbs::Facts dlgThumbs::facts(int16_t page) const {
    const ThumbGrid::Range seen = grid_.visible();
    const int32_t item = page - 1;
    return {selection_.isSelected(item), selection_.focus() == item, state(page) == ThumbState::Loading,
            item >= seen.first && item < seen.end};
}

} // namespace pixmo
