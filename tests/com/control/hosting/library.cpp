#include "tests/com/control/hosting/library.h"

#include "faces/com/base/boundary.h"
#include "faces/com/control/identifiers.h"

#include <stdexcept>

namespace pixmo::com::test {

Library::Library() : module_(LoadLibraryW(path().c_str())) {
    if (!module_)
        throw std::runtime_error("the control library cannot be loaded");
}

Library::~Library() {
    FreeLibrary(module_);
}

std::wstring Library::path() {
    wchar_t program[MAX_PATH] = {};
    GetModuleFileNameW(nullptr, program, MAX_PATH);
    const std::wstring folder(program);
    return folder.substr(0, folder.find_last_of(L'\\') + 1) + L"VellaneInet2.ocx";
}

HRESULT Library::call(const char* name) const {
    return procedure<HRESULT(WINAPI*)()>(name)();
}

ComPtr<IClassFactory> Library::factory(REFCLSID classId) const {
    ComPtr<IClassFactory> factory;
    check(procedure<HRESULT(WINAPI*)(REFCLSID, REFIID, void**)>("DllGetClassObject")(
        classId, IID_IClassFactory, factory.receiveAny()));
    return factory;
}

ComPtr<IUnknown> Library::makeControl(IUnknown* outer) const {
    ComPtr<IUnknown> control;
    check(factory(CLSID_ImageView)->CreateInstance(outer, IID_IUnknown, control.receiveAny()));
    return control;
}

bool Library::canUnload() const {
    return call("DllCanUnloadNow") == S_OK;
}

HRESULT Library::install(bool install, const wchar_t* commandLine) const {
    return procedure<HRESULT(WINAPI*)(BOOL, LPCWSTR)>("DllInstall")(install, commandLine);
}

} // namespace pixmo::com::test
