#include "apps/windows/script/hostobject.h"

#include "faces/com/base/boundary.h"

namespace pixmo::script {

STDMETHODIMP HostObjectPart::GetTypeInfoCount(UINT* count) {
    *count = 0;
    return S_OK;
}

STDMETHODIMP HostObjectPart::GetTypeInfo(UINT, LCID, ITypeInfo**) {
    return E_NOTIMPL;
}

STDMETHODIMP HostObjectPart::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) {
    if (count != 1)
        return DISP_E_UNKNOWNNAME;
    for (size_t at = 0; at < procedures_.size(); ++at) {
        if (lstrcmpiW(procedures_[at].first.c_str(), names[0]) != 0)
            continue;
        ids[0] = static_cast<DISPID>(at) + 1;
        return S_OK;
    }
    ids[0] = DISPID_UNKNOWN;
    return DISP_E_UNKNOWNNAME;
}

STDMETHODIMP HostObjectPart::Invoke(DISPID member, REFIID, LCID, WORD, DISPPARAMS* parameters,
                                    VARIANT* result, EXCEPINFO* exception, UINT*) {
    if (member < 1 || static_cast<size_t>(member) > procedures_.size())
        return DISP_E_MEMBERNOTFOUND;
    try {
        const Arguments arguments(std::make_reverse_iterator(parameters->rgvarg + parameters->cArgs),
                                  std::make_reverse_iterator(parameters->rgvarg));
        com::Variant answer = procedures_[static_cast<size_t>(member) - 1].second(arguments);
        return result ? VariantCopy(result, answer.get()) : S_OK;
    } catch (...) {
        const Error error = currentError();
        if (!exception)
            return com::resultOf(error);
        *exception = {};
        exception->scode = com::resultOf(error);
        exception->bstrDescription = com::Bstr(std::string_view(error.Description)).detach();
        exception->bstrSource = com::Bstr(std::wstring_view(L"Host")).detach();
        return DISP_E_EXCEPTION;
    }
}

} // namespace pixmo::script
