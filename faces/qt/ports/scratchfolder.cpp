#include "faces/qt/ports/scratchfolder.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace pixmo::qt {

namespace fs = std::filesystem;

namespace {

std::shared_ptr<void> openLocked(const fs::path& file, int flags) {
    const int descriptor = open(file.c_str(), flags | O_RDWR | O_NOFOLLOW | O_CLOEXEC, S_IRUSR | S_IWUSR);
    if (descriptor < 0)
        return nullptr;
    const std::shared_ptr<int> held(new int(descriptor), [](const int* closing) {
        close(*closing);
        delete closing;
    });
    return flock(descriptor, LOCK_EX | LOCK_NB) == 0 ? held : nullptr;
}

} // namespace

bool ScratchFolder::makePrivate(const fs::path& folder) {
    return mkdir(folder.c_str(), S_IRWXU) == 0;
}

bool ScratchFolder::isOwn(const fs::path& folder) {
    struct stat facts {};
    return lstat(folder.c_str(), &facts) == 0 && S_ISDIR(facts.st_mode) && facts.st_uid == geteuid();
}

// A file cannot be made and locked in one, but be renamed once it is locked.
ScratchFolder::Lock ScratchFolder::makeLocked(const fs::path& file) {
    fs::path young = file;
    young += ".new";
    Lock lock = openLocked(young, O_CREAT | O_EXCL);
    std::error_code problem;
    fs::rename(young, file, problem);
    return problem ? nullptr : lock;
}

ScratchFolder::Lock ScratchFolder::lock(const fs::path& file) {
    return openLocked(file, 0);
}

} // namespace pixmo::qt
