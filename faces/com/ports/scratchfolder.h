#pragma once

#include "core/platform/scratchfolder.h"

#include <windows.h>

namespace pixmo::com {

/// A folder in the user's temporary one, with an access list that names this user alone. A file in it that is
/// kept open shows that its process lives.
class ScratchFolder : public pixmo::ScratchFolder {
public:
    ScratchFolder() = default;
    ~ScratchFolder() override;
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;

    std::filesystem::path path() override;

private:
    std::filesystem::path folder_;
    HANDLE lock_ = INVALID_HANDLE_VALUE; ///< of the file that is kept open
};

} // namespace pixmo::com
