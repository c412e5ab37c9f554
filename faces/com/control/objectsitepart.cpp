#include "faces/com/control/objectsitepart.h"

namespace pixmo::com {

STDMETHODIMP ObjectSitePart::SetSite(IUnknown* site) {
    context_.host().setObjectSite(ComPtr<IUnknown>(site));
    return S_OK;
}

STDMETHODIMP ObjectSitePart::GetSite(REFIID iid, void** site) {
    if (!site)
        return E_POINTER;
    *site = nullptr;
    const auto& known = context_.host().objectSite();
    return known ? known->QueryInterface(iid, site) : E_FAIL;
}

} // namespace pixmo::com
