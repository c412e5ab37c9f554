#include "faces/com/control/siteparts.h"

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

STDMETHODIMP SafetyPart::GetInterfaceSafetyOptions(REFIID iid, DWORD* supported, DWORD* enabled) {
    if (!supported || !enabled)
        return E_POINTER;
    *supported = 0;
    *enabled = 0;
    ComPtr<IUnknown> asked;
    if (FAILED(context_.known().QueryInterface(iid, asked.receiveAny())))
        return E_NOINTERFACE;
    *supported = Safety::Supported;
    *enabled = context_.mayWriteFiles() ? 0 : Safety::Supported;
    return S_OK;
}

STDMETHODIMP SafetyPart::SetInterfaceSafetyOptions(REFIID iid, DWORD mask, DWORD options) {
    ComPtr<IUnknown> asked;
    if (FAILED(context_.known().QueryInterface(iid, asked.receiveAny())))
        return E_NOINTERFACE;
    // What the control does not know it cannot promise.
    if ((mask & options & ~Safety::Supported) != 0)
        return E_FAIL;
    return call("SetInterfaceSafetyOptions", [&] {
        context_.safety().tell(mask & Safety::Supported, options);
        // A log that was allowed until now ends.
        if (context_.isInitialised() && !context_.mayWriteFiles())
            context_.control()->setProperty("LogFileName", std::string());
        return S_OK;
    });
}

} // namespace pixmo::com
