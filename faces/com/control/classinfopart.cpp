#include "faces/com/control/classinfopart.h"

#include "faces/com/base/typelibrary.h"
#include "faces/com/control/identifiers.h"

namespace pixmo::com {

STDMETHODIMP ClassInfoPart::GetClassInfo(ITypeInfo** info) {
    return call("GetClassInfo", [&] {
        checkPointer(info);
        *info = typeInfoOf(CLSID_ImageView).detach();
        return S_OK;
    });
}

STDMETHODIMP ClassInfoPart::GetGUID(DWORD kind, GUID* guid) {
    if (!guid)
        return E_POINTER;
    *guid = GUID_NULL;
    if (kind != GUIDKIND_DEFAULT_SOURCE_DISP_IID)
        return E_INVALIDARG;
    *guid = DIID_IImageViewEvents;
    return S_OK;
}

} // namespace pixmo::com
