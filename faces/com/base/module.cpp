#include "faces/com/base/module.h"

namespace pixmo::com::module {

namespace {

HINSTANCE loadedInstance = nullptr;
LONG lockCount = 0;

} // namespace

HINSTANCE instance() {
    return loadedInstance;
}

void setInstance(HINSTANCE instance) {
    loadedInstance = instance;
}

std::wstring path() {
    std::wstring name(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length = GetModuleFileNameW(loadedInstance, name.data(), static_cast<DWORD>(name.size()));
        if (length < name.size()) {
            name.resize(length);
            return name;
        }
        name.resize(2 * name.size());
    }
}

void lock() {
    InterlockedIncrement(&lockCount);
}

void unlock() {
    InterlockedDecrement(&lockCount);
}

LONG locks() {
    return InterlockedCompareExchange(&lockCount, 0, 0);
}

} // namespace pixmo::com::module
