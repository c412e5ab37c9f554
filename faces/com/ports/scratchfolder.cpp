#include "faces/com/ports/scratchfolder.h"

#include "core/base/error.h"
#include "faces/com/ports/privatefolder.h"

#include <string>
#include <system_error>

namespace pixmo::com {

namespace fs = std::filesystem;

namespace {

constexpr const wchar_t* Prefix = L"pixmo-pages-";
constexpr const wchar_t* LockName = L"lock";

/// Nobody else can open a file that is open so.
HANDLE openAlone(const fs::path& file, DWORD disposition) {
    return CreateFileW(file.c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr, disposition,
                       FILE_ATTRIBUTE_NORMAL, nullptr);
}

/// Links to elsewhere are not followed.
bool isFolder(const fs::path& path) {
    const DWORD attributes = GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0 &&
           (attributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0;
}

/// Only a folder whose file can be opened is nobody's any more.
void removeIfLeft(const fs::path& folder) {
    if (!isFolder(folder))
        return;
    const HANDLE lock = openAlone(folder / LockName, OPEN_EXISTING);
    if (lock == INVALID_HANDLE_VALUE)
        return;
    CloseHandle(lock);
    std::error_code ignored;
    fs::remove_all(folder, ignored);
}

void removeLeftFolders(const fs::path& temporary) {
    std::error_code problem;
    for (fs::directory_iterator entry(temporary, problem), end; !problem && entry != end;
         entry.increment(problem))
        if (entry->path().filename().wstring().starts_with(Prefix))
            removeIfLeft(entry->path());
}

std::wstring newName() {
    GUID unique{};
    if (FAILED(CoCreateGuid(&unique)))
        throw pathFileAccessError();
    constexpr int Length = 39;
    std::wstring text(Length, L'\0');
    StringFromGUID2(unique, text.data(), Length);
    return Prefix + text.substr(1, Length - 3);
}

} // namespace

ScratchFolder::~ScratchFolder() {
    if (lock_ != INVALID_HANDLE_VALUE)
        CloseHandle(lock_);
    std::error_code ignored;
    if (!folder_.empty())
        fs::remove_all(folder_, ignored);
}

// The file appears open: no other process can take the folder for one that was left.
fs::path ScratchFolder::path() {
    if (!folder_.empty())
        return folder_;
    std::error_code problem;
    const fs::path temporary = fs::temp_directory_path(problem);
    if (problem)
        throw pathFileAccessError();
    removeLeftFolders(temporary);
    const fs::path folder = temporary / newName();
    if (!makePrivateFolder(folder.wstring()))
        throw pathFileAccessError();
    folder_ = folder;
    lock_ = openAlone(folder_ / LockName, CREATE_NEW);
    if (lock_ == INVALID_HANDLE_VALUE)
        throw pathFileAccessError();
    return folder_;
}

} // namespace pixmo::com
