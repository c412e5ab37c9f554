#include "apps/windows/script/eventforwarder.h"

#include "faces/com/base/boundary.h"

#include <ocidl.h>
#include <vector>

namespace pixmo::script {

using com::Bstr;
using com::check;
using com::ComPtr;
using com::Variant;

STDMETHODIMP EventForwarderPart::GetTypeInfoCount(UINT* count) {
    *count = 0;
    return S_OK;
}

STDMETHODIMP EventForwarderPart::GetTypeInfo(UINT, LCID, ITypeInfo**) {
    return E_NOTIMPL;
}

STDMETHODIMP EventForwarderPart::GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) {
    return E_NOTIMPL;
}

STDMETHODIMP EventForwarderPart::Invoke(DISPID member, REFIID, LCID, WORD, DISPPARAMS* parameters, VARIANT*,
                                        EXCEPINFO*, UINT*) {
    return com::boundary(IID_IDispatch, "Event", [&]() -> HRESULT {
        Bstr name;
        UINT count = 0;
        check(events_->GetNames(member, name.receive(), 1, &count));
        std::wstring procedure = prefix_ + std::wstring(name.view());
        LPOLESTR names = procedure.data();
        DISPID id = DISPID_UNKNOWN;
        if (FAILED(script_->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &id)))
            return S_OK; // the script does not want this one
        std::vector<Variant> variables(parameters->cArgs);
        std::vector<VARIANT> arguments(parameters->cArgs);
        for (UINT at = 0; at < parameters->cArgs; ++at) {
            check(variables[at].assignFrom(&parameters->rgvarg[at]));
            arguments[at].vt = VT_BYREF | VT_VARIANT;
            arguments[at].pvarVal = variables[at].get();
        }
        DISPPARAMS given{arguments.data(), nullptr, parameters->cArgs, 0};
        script_->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &given, nullptr, nullptr,
                        nullptr);
        for (UINT at = 0; at < parameters->cArgs; ++at) {
            const VARIANT& target = parameters->rgvarg[at];
            const auto type = static_cast<VARTYPE>(target.vt & ~VT_BYREF);
            if ((target.vt & VT_BYREF) == 0 || FAILED(variables[at].convertTo(type)))
                continue;
            if (type == VT_I2 || type == VT_BOOL)
                *target.piVal = variables[at].get()->iVal;
            else if (type == VT_I4)
                *target.plVal = variables[at].get()->lVal;
        }
        return S_OK;
    });
}

void connectEvents(IUnknown& object, const ComPtr<IDispatch>& script, const std::wstring& prefix) {
    const auto classes = com::queryFor<IProvideClassInfo2>(&object);
    const auto container = com::queryFor<IConnectionPointContainer>(&object);
    if (!classes || !container)
        throw com::errorOf(E_NOINTERFACE);
    GUID events{};
    ComPtr<ITypeInfo> classInfo;
    ComPtr<ITypeLib> library;
    ComPtr<ITypeInfo> eventInfo;
    UINT index = 0;
    check(classes->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, &events));
    check(classes->GetClassInfo(classInfo.receive()));
    check(classInfo->GetContainingTypeLib(library.receive(), &index));
    check(library->GetTypeInfoOfGuid(events, eventInfo.receive()));
    ComPtr<IConnectionPoint> point;
    check(container->FindConnectionPoint(events, point.receive()));
    DWORD cookie = 0;
    const auto sink = com::makeObject<EventForwarder>(script, eventInfo, prefix);
    check(point->Advise(&sink->identity(), &cookie));
}

} // namespace pixmo::script
