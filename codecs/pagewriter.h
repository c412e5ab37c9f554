#pragma once

#include "core/platform/pagewriter.h"

namespace pixmo {

/// The page writer of every face. A page is made up in memory, written under a name of its own beside the
/// target and then moved there, so that a reader of the target sees either nothing new or all of it.
class PageFileWriter : public PageWriter {
public:
    /// Throws invalid picture (481) too when a library refuses the page.
    void write(const Raster& page, const std::filesystem::path& path) const override;
};

} // namespace pixmo
