#pragma once

#include "core/base/collection.h"
#include "core/control/pagecache.h"
#include "core/imaging/viewgeometry.h"

#include <cstdint>
#include <map>
#include <set>
#include <string>

namespace pixmo {

/// What the control holds between two documents.
struct SessionState {
    bool contacted = false;      ///< survives Clear: one control makes one initial contact
    int32_t currentDocument = 0; ///< 0 = none
    int16_t pageCount = 0;       ///< 0 = not yet known
    int16_t currentPage = 0;     ///< 1-based, 0 = none
    PageCache pages;
    Collection pending; ///< tags of the transfers under way
    /// Pages that are fetched to be printed; the view does not ask for them.
    std::set<int16_t> printPages;
    /// The page whose picture the view holds; 0 when it holds none, or one that is not to be seen.
    int16_t shownPage = 0;
    /// How each page that was seen was looked at last.
    std::map<int16_t, ViewPlace> places;
    std::string transferProblem; ///< why the last transfer ended without its data; "" when it did not
};

/// What a print job says of itself; the text stays when the job is over.
struct PrintingState {
    bool running = false;
    std::string text;
    int32_t percent = -1; ///< 0 to 100, or -1
};

/// Progress of the transfer that reported last.
struct TransferProgress {
    std::string tag; ///< "" when nothing is under way
    int32_t bytesRead = 0;
    int32_t bytesMax = 0; ///< 0 when the size is not known
};

} // namespace pixmo
