#include "core/control/pagedisplay.h"

namespace pixmo {

int32_t PageDisplay::show(int16_t page, const std::filesystem::path& file, int32_t encBytes) {
    keepPlace();
    shownPage_ = 0;
    const int32_t status = leadImageHelp_.imgDisplayEncryptedPage(file, encBytes);
    if (status != 0)
        return status;
    shownPage_ = page;
    const auto place = places_.find(page);
    if (place != places_.end())
        lvrImage_.goTo(place->second);
    return 0;
}

/// A turned page is seen unturned the next time: only its zoom is kept.
void PageDisplay::keepPlace() {
    if (shownPage_ == 0 || !lvrImage_.hasPicture())
        return;
    ViewPlace place = lvrImage_.place();
    if (lvrImage_.isTurned())
        place.middle = ViewPlace().middle;
    places_[shownPage_] = place;
}

void PageDisplay::forgetPages() {
    shownPage_ = 0;
    places_.clear();
}

} // namespace pixmo
