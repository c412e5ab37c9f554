#pragma once

#include <filesystem>

namespace pixmo {

/// Port: a folder for one control's page files.
class ScratchFolder {
public:
    virtual ~ScratchFolder() = default;

    /// The folder, made on the first call, that only this user can enter (mode 0700). The port removes it
    /// with all it holds when it ends, and what a process that died left behind when the next one starts.
    /// Throws path/file access (75).
    virtual std::filesystem::path path() = 0;
};

} // namespace pixmo
