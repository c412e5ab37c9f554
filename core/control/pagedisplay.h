#pragma once

#include "core/imaging/cleadimagefunctions.h"
#include "core/imaging/rasterview.h"

#include <cstdint>
#include <filesystem>
#include <map>

namespace pixmo {

/// The view as the session uses it: which page of the document it shows, and how each page that was seen was
/// looked at last.
class PageDisplay {
public:
    PageDisplay(RasterView& lvrImage, cLeadImageFunctions& leadImageHelp)
        : lvrImage_(lvrImage), leadImageHelp_(leadImageHelp) {}

    bool shows(int16_t page) const { return page != 0 && page == shownPage_ && lvrImage_.hasPicture(); }
    /// A page has been shown, even if its picture is gone.
    bool hasShown(int16_t page) const { return shownPage_ == page; }
    /// The page as its file holds it, where it was looked at last. 0, or the number of the failure, which the
    /// error object holds; then nothing counts as shown.
    int32_t show(int16_t page, const std::filesystem::path& file, int32_t encBytes);
    /// The pages of another document follow; the picture stays until it is cleared.
    void forgetPages();
    void clear() { leadImageHelp_.imgClear(); }

private:
    void keepPlace();

    RasterView& lvrImage_;
    cLeadImageFunctions& leadImageHelp_;
    int16_t shownPage_ = 0; ///< 0: none, or one that is not to be seen
    std::map<int16_t, ViewPlace> places_;
};

} // namespace pixmo
