#pragma once

#include "core/raster/raster.h"

#include <cstdint>
#include <filesystem>
#include <string>

namespace pixmo {

/// What the thumbnail window asks about the document.
class ThumbDocument {
public:
    virtual ~ThumbDocument() = default;

    virtual int32_t documentID() const = 0; ///< 0 for none
    virtual int16_t pageCount() const = 0;
    virtual int16_t currentPage() const = 0;
    /// Whether the reader waits for a page: then no thumbnail is asked for.
    virtual bool isReaderWaiting() const = 0;
    virtual bool isPagePending(int16_t page) const = 0;
    virtual bool isPageCached(int16_t page) const = 0;
    virtual std::string transferProblem() const = 0;
    /// Whether pages may be printed.
    virtual bool canPrint() const = 0;
    /// The page file restored and decoded. 0, or the number of an error whose text is in `problem`.
    virtual int32_t loadPage(const std::filesystem::path& file, int32_t encBytes, Raster& raster,
                             std::string& problem) const = 0;
};

} // namespace pixmo
