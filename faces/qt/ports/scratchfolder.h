#pragma once

#include "core/platform/lockedfolder.h"

namespace pixmo::qt {

/// Its folder has mode 0700, its locks are those of flock().
class ScratchFolder : public LockedFolder {
protected:
    bool makePrivate(const std::filesystem::path& folder) override;
    bool isOwn(const std::filesystem::path& folder) override;
    Lock makeLocked(const std::filesystem::path& file) override;
    Lock lock(const std::filesystem::path& file) override;
};

} // namespace pixmo::qt
