#include "faces/com/windows/commoncontrols.h"

#include "faces/com/base/window.h"

#include <array>

namespace pixmo::com {

namespace {

constexpr WORD ManifestResource = 2;

HANDLE makeContext() {
    std::array<wchar_t, 1024> file{};
    GetModuleFileNameW(thisModule(), file.data(), static_cast<DWORD>(file.size()));
    ACTCTXW context{};
    context.cbSize = sizeof context;
    context.dwFlags = ACTCTX_FLAG_HMODULE_VALID | ACTCTX_FLAG_RESOURCE_NAME_VALID;
    context.lpSource = file.data();
    context.hModule = thisModule();
    context.lpResourceName = MAKEINTRESOURCEW(ManifestResource);
    return CreateActCtxW(&context);
}

} // namespace

std::shared_ptr<CommonControls> CommonControls::share() {
    static std::weak_ptr<CommonControls> shared;
    std::shared_ptr<CommonControls> controls = shared.lock();
    if (!controls) {
        controls = std::make_shared<CommonControls>();
        shared = controls;
    }
    return controls;
}

CommonControls::CommonControls() : context_(makeContext()) {
    const Scope scope(*this);
    library_ = LoadLibraryW(L"comctl32.dll");
    const INITCOMMONCONTROLSEX classes = {sizeof classes, ICC_BAR_CLASSES | ICC_PROGRESS_CLASS};
    if (const auto initialise = find<decltype(&InitCommonControlsEx)>("InitCommonControlsEx"))
        initialise(&classes);
}

CommonControls::~CommonControls() {
    if (library_)
        FreeLibrary(library_);
    if (context_ != INVALID_HANDLE_VALUE)
        ReleaseActCtx(context_);
}

CommonControls::Scope::Scope(const CommonControls& controls)
    : active_(controls.context_ != INVALID_HANDLE_VALUE && ActivateActCtx(controls.context_, &cookie_)) {}

CommonControls::Scope::~Scope() {
    if (active_)
        DeactivateActCtx(0, cookie_);
}

template <typename Function>
Function CommonControls::find(const char* name) const {
    return reinterpret_cast<Function>(
        reinterpret_cast<void*>(library_ ? GetProcAddress(library_, name) : nullptr));
}

HIMAGELIST CommonControls::makeImages(SIZE size, int count) const {
    const auto create = find<decltype(&ImageList_Create)>("ImageList_Create");
    return create ? create(size.cx, size.cy, ILC_COLOR32, count, 0) : nullptr;
}

void CommonControls::addImage(HIMAGELIST images, HBITMAP bitmap) const {
    if (const auto add = find<decltype(&ImageList_Add)>("ImageList_Add"))
        add(images, bitmap, nullptr);
}

void CommonControls::destroyImages(HIMAGELIST images) const {
    const auto destroy = find<decltype(&ImageList_Destroy)>("ImageList_Destroy");
    if (destroy && images)
        destroy(images);
}

} // namespace pixmo::com
