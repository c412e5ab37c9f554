#include "faces/com/ports/scratchfolder.h"

#include "faces/com/ports/privatefolder.h"

#include <windows.h>

namespace pixmo::com {

namespace fs = std::filesystem;

namespace {

std::shared_ptr<void> openAlone(const fs::path& file, DWORD disposition) {
    const HANDLE handle = CreateFileW(file.c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr, disposition,
                                      FILE_ATTRIBUTE_NORMAL, nullptr);
    return handle == INVALID_HANDLE_VALUE ? nullptr : std::shared_ptr<void>(handle, CloseHandle);
}

} // namespace

bool ScratchFolder::makePrivate(const fs::path& folder) {
    return makePrivateFolder(folder.wstring());
}

bool ScratchFolder::isOwn(const fs::path& folder) {
    const DWORD attributes = GetFileAttributesW(folder.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0 &&
           (attributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0;
}

ScratchFolder::Lock ScratchFolder::makeLocked(const fs::path& file) {
    return openAlone(file, CREATE_NEW);
}

ScratchFolder::Lock ScratchFolder::lock(const fs::path& file) {
    return openAlone(file, OPEN_EXISTING);
}

} // namespace pixmo::com
