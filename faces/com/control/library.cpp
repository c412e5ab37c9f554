#include "faces/com/base/classfactory.h"
#include "faces/com/base/module.h"
#include "faces/com/control/identifiers.h"
#include "faces/com/control/imageviewobject.h"
#include "faces/com/control/propertypage.h"
#include "faces/com/control/registrationtable.h"

#include <string_view>

// What the system and registration tools call in the library.

using namespace pixmo::com;

namespace {

struct ServedClass {
    const CLSID& identity;
    ClassFactoryPart::Maker make;
};

ClassFactoryPart::Maker makerOf(REFCLSID classId) {
    const ServedClass served[] = {
        {CLSID_ImageView, ImageViewObject::make},
        {ClassOfPage, PropertyPage::make},
    };
    for (const ServedClass& candidate : served)
        if (IsEqualCLSID(candidate.identity, classId))
            return candidate.make;
    return nullptr;
}

HRESULT registerFor(HKEY root) {
    return boundary(IID_NULL, "DllRegisterServer",
                    [&] { return writeRegistry(root, registrationTable(module::path())); });
}

HRESULT unregisterFor(HKEY root) {
    return boundary(IID_NULL, "DllUnregisterServer",
                    [&] { return removeFromRegistry(root, registrationTable(module::path())); });
}

} // namespace

extern "C" {

BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, LPVOID) {
    if (reason == DLL_PROCESS_ATTACH)
        module::setInstance(instance);
    return TRUE;
}

STDAPI DllGetClassObject(REFCLSID classId, REFIID iid, LPVOID* object) {
    return boundary(IID_IClassFactory, "DllGetClassObject", [&]() -> HRESULT {
        checkPointer(object);
        *object = nullptr;
        const ClassFactoryPart::Maker make = makerOf(classId);
        if (!make)
            return CLASS_E_CLASSNOTAVAILABLE;
        return makeObject<ClassFactory>(make)->QueryInterface(iid, object);
    });
}

STDAPI DllCanUnloadNow() {
    return module::locks() == 0 ? S_OK : S_FALSE;
}

STDAPI DllRegisterServer() {
    return registerFor(HKEY_LOCAL_MACHINE);
}

STDAPI DllUnregisterServer() {
    return unregisterFor(HKEY_LOCAL_MACHINE);
}

/// The command line "user" keeps everything to the user who installs; any other is for the whole machine.
STDAPI DllInstall(BOOL install, LPCWSTR commandLine) {
    const bool forUser = commandLine && std::wstring_view(commandLine) == L"user";
    const HKEY root = forUser ? HKEY_CURRENT_USER : HKEY_LOCAL_MACHINE;
    return install ? registerFor(root) : unregisterFor(root);
}

} // extern "C"
