#pragma once

#include "core/platform/lockedfolder.h"

namespace pixmo::com {

/// Its folder has an access list that names this user alone; what is locked is open, and nobody else can open
/// it so.
class ScratchFolder : public LockedFolder {
protected:
    bool makePrivate(const std::filesystem::path& folder) override;
    bool isOwn(const std::filesystem::path& folder) override;
    Lock makeLocked(const std::filesystem::path& file) override;
    Lock lock(const std::filesystem::path& file) override;
};

} // namespace pixmo::com
