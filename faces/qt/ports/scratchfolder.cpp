#include "faces/qt/ports/scratchfolder.h"

#include "core/base/error.h"

#include <fcntl.h>
#include <string>
#include <sys/file.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace pixmo::qt {

namespace fs = std::filesystem;

namespace {

constexpr const char* Prefix = "pixmo-pages-";
constexpr const char* LockName = ".lock";
constexpr const char* NewLockName = ".lock.new";

bool isOwnFolder(const fs::path& path) {
    struct stat facts {};
    return lstat(path.c_str(), &facts) == 0 && S_ISDIR(facts.st_mode) && facts.st_uid == geteuid();
}

int openLocked(const fs::path& file, int flags) {
    const int descriptor = open(file.c_str(), flags | O_RDWR | O_NOFOLLOW | O_CLOEXEC, S_IRUSR | S_IWUSR);
    if (descriptor >= 0 && flock(descriptor, LOCK_EX | LOCK_NB) == 0)
        return descriptor;
    if (descriptor >= 0)
        close(descriptor);
    return -1;
}

/// Only a folder whose lock can be taken is nobody's any more.
void removeIfLeft(const fs::path& folder) {
    if (!isOwnFolder(folder))
        return;
    const int lock = openLocked(folder / LockName, 0);
    if (lock < 0)
        return;
    std::error_code ignored;
    fs::remove_all(folder, ignored);
    close(lock);
}

void removeLeftFolders() {
    std::error_code problem;
    for (fs::directory_iterator entry(fs::temp_directory_path(problem), problem), end;
         !problem && entry != end; entry.increment(problem))
        if (entry->path().filename().string().starts_with(Prefix))
            removeIfLeft(entry->path());
}

} // namespace

ScratchFolder::~ScratchFolder() {
    std::error_code ignored;
    if (!folder_.empty())
        fs::remove_all(folder_, ignored);
    if (lock_ >= 0)
        close(lock_);
}

fs::path ScratchFolder::path() {
    if (!folder_.empty())
        return folder_;
    removeLeftFolders();
    std::string name = (fs::temp_directory_path() / (std::string(Prefix) + "XXXXXX")).string();
    if (!mkdtemp(name.data()))
        throw pathFileAccessError();
    folder_ = name;
    // It appears under its name locked, so that no other process takes this folder for one that was left.
    lock_ = openLocked(folder_ / NewLockName, O_CREAT | O_EXCL);
    std::error_code problem;
    fs::rename(folder_ / NewLockName, folder_ / LockName, problem);
    if (lock_ < 0 || problem)
        throw pathFileAccessError();
    return folder_;
}

} // namespace pixmo::qt
