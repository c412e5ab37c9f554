#pragma once

#include "core/platform/scratchfolder.h"

#include <memory>

namespace pixmo {

/// A scratch folder in the system's temporary one: how it is named, when it is removed, and how a folder that
/// a dead process has left is told from one that is in use, which is by a lock that ends with its process.
/// What each system does in a way of its own is the face's.
class LockedFolder : public ScratchFolder {
public:
    ~LockedFolder() override;
    LockedFolder(const LockedFolder&) = delete;
    LockedFolder& operator=(const LockedFolder&) = delete;

    std::filesystem::path path() final;

protected:
    /// A file that is locked as long as this is held.
    using Lock = std::shared_ptr<void>;

    LockedFolder() = default;

    /// Makes a folder that only this user can enter; false when there is none, or something of that name.
    virtual bool makePrivate(const std::filesystem::path& folder) = 0;
    /// Whether it is a folder of this user's, and no link to elsewhere.
    virtual bool isOwn(const std::filesystem::path& folder) = 0;
    /// Makes the file. It appears locked, so that no other process takes the folder for one that was left;
    /// nullptr when that fails.
    virtual Lock makeLocked(const std::filesystem::path& file) = 0;
    /// nullptr when there is no such file, or another process holds it.
    virtual Lock lock(const std::filesystem::path& file) = 0;

private:
    void removeLeftFolders(const std::filesystem::path& temporary);

    std::filesystem::path folder_;
    Lock lock_;
};

} // namespace pixmo
