#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace pixmo {

/// What stands on the sheet that goes before a job.
struct CoverSheet {
    std::string userName;
    std::string date;
    std::string workstation;
    std::string itemDescription;
    std::string fee;
};

/// One print job, decided.
struct PrintRequest {
    std::string documentName;
    std::vector<int16_t> pages;           ///< in printing order
    std::vector<std::string> pageNumbers; ///< what stands at the foot of each; empty: nothing does
    int16_t scale = 0;                    ///< fit to page, full size, current view
    int32_t copies = 1;
    bool mayCrop = false;         ///< full-size pages are cut to the paper without asking
    int32_t paperSize = 0;        ///< 0: the printer's own
    std::string caption;          ///< "": none
    int16_t captionFontSize = 12; ///< points
    bool hasCoverSheet = false;
    CoverSheet coverSheet;
};

/// How a job ended.
struct PrintResult {
    int32_t pagesQueued = 0; ///< successfully, one copy's
    bool completed = false;  ///< not declined, cancelled or given up
    std::vector<std::string> errors;
};

} // namespace pixmo
