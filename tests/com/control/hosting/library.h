#pragma once

#include "faces/com/base/comptr.h"

#include <string>
#include <windows.h>

namespace pixmo::com::test {

/// The control library beside the test program, loaded without any registration.
class Library {
public:
    Library();
    ~Library();
    Library(const Library&) = delete;
    Library& operator=(const Library&) = delete;

    static std::wstring path();

    ComPtr<IClassFactory> factory(REFCLSID classId) const;
    ComPtr<IUnknown> makeControl(IUnknown* outer = nullptr) const;
    bool canUnload() const;
    HRESULT registerServer() const { return call("DllRegisterServer"); }
    HRESULT unregisterServer() const { return call("DllUnregisterServer"); }
    HRESULT install(bool install, const wchar_t* commandLine) const;

private:
    template <class Procedure>
    Procedure procedure(const char* name) const {
        return reinterpret_cast<Procedure>(reinterpret_cast<void*>(GetProcAddress(module_, name)));
    }
    HRESULT call(const char* name) const;

    HMODULE module_;
};

} // namespace pixmo::com::test
