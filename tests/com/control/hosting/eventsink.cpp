#include "tests/com/control/hosting/eventsink.h"

#include <map>
#include <olectl.h>

namespace pixmo::com::test {

namespace {

const char* nameOf(DISPID event) {
    static const std::map<DISPID, const char*> names{
        {DISPID_CLICK, "Click"},       {DISPID_DBLCLICK, "DblClick"}, {DISPID_KEYDOWN, "KeyDown"},
        {DISPID_KEYPRESS, "KeyPress"}, {DISPID_KEYUP, "KeyUp"},       {1, "PrintJobBegin"},
        {2, "PrintJobBeginEX"},        {3, "PrintJobFinish"},         {4, "PageChanged"},
        {5, "BookmarkRequested"},
    };
    const auto found = names.find(event);
    return found == names.end() ? "unknown" : found->second;
}

} // namespace

STDMETHODIMP EventSinkPart::GetTypeInfoCount(UINT* count) {
    *count = 0;
    return S_OK;
}

STDMETHODIMP EventSinkPart::GetTypeInfo(UINT, LCID, ITypeInfo**) {
    return E_NOTIMPL;
}

STDMETHODIMP EventSinkPart::GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) {
    return E_NOTIMPL;
}

STDMETHODIMP EventSinkPart::Invoke(DISPID member, REFIID, LCID, WORD, DISPPARAMS* parameters, VARIANT*,
                                   EXCEPINFO*, UINT*) {
    std::string line = nameOf(member) + std::string("(");
    for (UINT at = parameters->cArgs; at > 0; --at) {
        Variant text;
        text.assignFrom(&parameters->rgvarg[at - 1]);
        text.convertTo(VT_BSTR);
        line += (at == parameters->cArgs ? "" : ", ") + textOf(text.get()->bstrVal);
    }
    record_.events.push_back(line + ")");
    if (record_.handler)
        record_.handler(member, *parameters);
    return S_OK;
}

} // namespace pixmo::com::test
