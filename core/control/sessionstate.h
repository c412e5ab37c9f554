#pragma once

#include "core/control/pagecache.h"

#include <cstdint>
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
};

} // namespace pixmo
