#include "apps/windows/viewer/neighbourlibrary.h"

#include "apps/windows/viewer/commands.h"
#include "faces/com/base/boundary.h"

#include <string>

namespace pixmo::viewer {

namespace {

std::wstring programFile() {
    std::wstring file(MAX_PATH, L'\0');
    file.resize(GetModuleFileNameW(nullptr, file.data(), MAX_PATH));
    return file;
}

HANDLE makeContext() {
    const std::wstring file = programFile();
    const std::wstring folder = file.substr(0, file.find_last_of(L'\\'));
    ACTCTXW context{};
    context.cbSize = sizeof context;
    context.dwFlags = ACTCTX_FLAG_RESOURCE_NAME_VALID | ACTCTX_FLAG_ASSEMBLY_DIRECTORY_VALID;
    context.lpSource = file.c_str();
    context.lpResourceName = MAKEINTRESOURCEW(ID_NEIGHBOUR_MANIFEST);
    context.lpAssemblyDirectory = folder.c_str();
    const HANDLE made = CreateActCtxW(&context);
    if (made == INVALID_HANDLE_VALUE)
        throw com::errorOf(HRESULT_FROM_WIN32(GetLastError()));
    return made;
}

} // namespace

NeighbourLibrary::NeighbourLibrary() : context_(makeContext()) {
    ActivateActCtx(context_, &cookie_);
}

NeighbourLibrary::~NeighbourLibrary() {
    DeactivateActCtx(0, cookie_);
    ReleaseActCtx(context_);
}

} // namespace pixmo::viewer
