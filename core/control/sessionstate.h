#pragma once

#include "core/control/pagecache.h"
#include "core/imaging/viewgeometry.h"

#include <cstdint>
#include <map>
#include <set>

namespace pixmo {

/// What the control holds between two documents.
struct SessionState {
    bool contacted = false;      ///< survives Clear: one control makes one initial contact
    int32_t currentDocument = 0; ///< 0 = none
    int16_t pageCount = 0;       ///< 0 = not yet known
    int16_t currentPage = 0;     ///< 1-based, 0 = none
    PageCache pages;
    /// Pages that are fetched to be printed; the view does not ask for them.
    std::set<int16_t> printPages;
    /// The page whose picture the view holds; 0 when it holds none, or one that is not to be seen.
    int16_t shownPage = 0;
    /// How each page that was seen was looked at last.
    std::map<int16_t, ViewPlace> places;
};

} // namespace pixmo
