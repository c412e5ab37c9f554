#pragma once

#include "core/platform/scratchfolder.h"

namespace pixmo::qt {

/// A folder in the system's temporary one. A lock on a file in it shows that its process lives.
class ScratchFolder : public pixmo::ScratchFolder {
public:
    ScratchFolder() = default;
    ~ScratchFolder() override;
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;

    std::filesystem::path path() override;

private:
    std::filesystem::path folder_;
    int lock_ = -1; ///< descriptor of the locked file
};

} // namespace pixmo::qt
