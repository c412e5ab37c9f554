#include "core/platform/lockedfolder.h"

#include "core/base/error.h"

#include <random>
#include <string>
#include <system_error>

namespace pixmo {

namespace fs = std::filesystem;

namespace {

constexpr const char* Prefix = "pixmo-pages-";
constexpr const char* LockName = ".lock";

/// Not to be guessed by other users, and not taken by other controls.
std::string newName() {
    std::random_device random;
    std::string name = Prefix;
    for (int part = 0; part < 4; ++part)
        name += std::to_string(random());
    return name;
}

/// Not while its lock is held: not every system removes an open file.
void removeWhole(const fs::path& folder) {
    std::error_code ignored;
    fs::remove_all(folder, ignored);
}

} // namespace

LockedFolder::~LockedFolder() {
    lock_.reset();
    if (!folder_.empty())
        removeWhole(folder_);
}

/// Only a folder whose lock can be taken is nobody's any more.
void LockedFolder::removeLeftFolders(const fs::path& temporary) {
    std::error_code problem;
    for (fs::directory_iterator entry(temporary, problem), end; !problem && entry != end;
         entry.increment(problem)) {
        const fs::path& folder = entry->path();
        if (folder.filename().string().starts_with(Prefix) && isOwn(folder) && lock(folder / LockName))
            removeWhole(folder);
    }
}

fs::path LockedFolder::path() {
    if (!folder_.empty())
        return folder_;
    std::error_code problem;
    const fs::path temporary = fs::temp_directory_path(problem);
    if (problem)
        throw pathFileAccessError();
    removeLeftFolders(temporary);
    const fs::path folder = temporary / newName();
    if (!makePrivate(folder))
        throw pathFileAccessError();
    folder_ = folder;
    lock_ = makeLocked(folder_ / LockName);
    if (!lock_)
        throw pathFileAccessError();
    return folder_;
}

} // namespace pixmo
