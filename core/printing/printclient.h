#pragma once

#include "core/raster/raster.h"

#include <cstdint>
#include <string>

namespace pixmo {

/// Whose pages are printed.
class PrintClient {
public:
    virtual ~PrintClient() = default;

    /// The page as it is to be printed, never empty. Throws where it cannot be loaded.
    virtual Raster printedPage(int16_t page) = 0;
    /// What goes on, and how much of it is done: 0 to 100, or -1.
    virtual void printStatus(const std::string& text, int32_t percent) = 0;
    virtual void printProgress(const std::string& record) = 0;
    /// Between pages: handles the events that came meanwhile; false ends the job.
    virtual bool printGoesOn() = 0;
};

} // namespace pixmo
