#include "apps/windows/script/scriptevents.h"

#include "apps/windows/form/eventsink.h"
#include "faces/com/base/boundary.h"
#include "faces/com/base/variant.h"

#include <vector>

namespace pixmo::script {

using com::Bstr;
using com::check;
using com::ComPtr;
using com::Variant;

namespace {

void callWith(IDispatch& script, DISPID procedure, DISPPARAMS& event) {
    std::vector<Variant> variables(event.cArgs);
    std::vector<VARIANT> arguments(event.cArgs);
    for (UINT at = 0; at < event.cArgs; ++at) {
        check(variables[at].assignFrom(&event.rgvarg[at]));
        arguments[at].vt = VT_BYREF | VT_VARIANT;
        arguments[at].pvarVal = variables[at].get();
    }
    DISPPARAMS given{arguments.data(), nullptr, event.cArgs, 0};
    script.Invoke(procedure, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &given, nullptr, nullptr,
                  nullptr);
    for (UINT at = 0; at < event.cArgs; ++at) {
        const VARIANT& target = event.rgvarg[at];
        const auto type = static_cast<VARTYPE>(target.vt & ~VT_BYREF);
        if ((target.vt & VT_BYREF) == 0 || FAILED(variables[at].convertTo(type)))
            continue;
        if (type == VT_I2 || type == VT_BOOL)
            *target.piVal = variables[at].get()->iVal;
        else if (type == VT_I4)
            *target.plVal = variables[at].get()->lVal;
    }
}

/// What describes the object's default events, and which those are.
ComPtr<ITypeInfo> defaultEvents(IProvideClassInfo2& object, GUID& events) {
    ComPtr<ITypeInfo> classInfo;
    ComPtr<ITypeLib> library;
    ComPtr<ITypeInfo> eventInfo;
    UINT index = 0;
    check(object.GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, &events));
    check(object.GetClassInfo(classInfo.receive()));
    check(classInfo->GetContainingTypeLib(library.receive(), &index));
    check(library->GetTypeInfoOfGuid(events, eventInfo.receive()));
    return eventInfo;
}

} // namespace

void connectEvents(IUnknown& object, const ComPtr<IDispatch>& script, const std::wstring& prefix) {
    const auto classes = com::queryFor<IProvideClassInfo2>(&object);
    const auto container = com::queryFor<IConnectionPointContainer>(&object);
    if (!classes || !container)
        throw com::errorOf(E_NOINTERFACE);
    GUID events{};
    const ComPtr<ITypeInfo> described = defaultEvents(*classes, events);
    const auto forward = [script, described, prefix](DISPID member, DISPPARAMS& arguments) {
        Bstr name;
        UINT count = 0;
        check(described->GetNames(member, name.receive(), 1, &count));
        std::wstring procedure = prefix + std::wstring(name.view());
        LPOLESTR names = procedure.data();
        DISPID id = DISPID_UNKNOWN;
        // A script need not want every event.
        if (SUCCEEDED(script->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &id)))
            callWith(*script, id, arguments);
    };
    ComPtr<IConnectionPoint> point;
    DWORD cookie = 0;
    check(container->FindConnectionPoint(events, point.receive()));
    check(point->Advise(&com::makeObject<form::EventSink>(forward)->identity(), &cookie));
}

} // namespace pixmo::script
