#include "tests/com/control/hosting/memorybag.h"

namespace pixmo::com::test {

/// The value comes in the type that is asked for; what cannot be had in it is refused.
STDMETHODIMP MemoryBagPart::Read(LPCOLESTR name, VARIANT* value, IErrorLog*) {
    const VARTYPE type = value->vt;
    VariantInit(value);
    if (const auto object = contents_.objects.find(name); object != contents_.objects.end()) {
        if (type != VT_DISPATCH && type != VT_UNKNOWN && type != VT_EMPTY)
            return DISP_E_TYPEMISMATCH;
        return VariantCopy(value, Variant(object->second.get()).get());
    }
    const auto text = contents_.texts.find(name);
    if (text == contents_.texts.end())
        return E_INVALIDARG;
    Variant found(std::string_view(toUtf8(text->second)));
    return VariantChangeType(value, found.get(), 0, type == VT_EMPTY ? static_cast<VARTYPE>(VT_BSTR) : type);
}

STDMETHODIMP MemoryBagPart::Write(LPCOLESTR name, VARIANT* value) {
    contents_.written.emplace_back(name);
    if (value->vt == VT_DISPATCH || value->vt == VT_UNKNOWN) {
        contents_.objects.insert_or_assign(name, ComPtr<IUnknown>(value->punkVal));
        return S_OK;
    }
    Variant text;
    text.assignFrom(value);
    if (const HRESULT result = text.convertTo(VT_BSTR); FAILED(result))
        return result;
    contents_.texts.insert_or_assign(name, std::wstring(Bstr::viewOf(text.get()->bstrVal)));
    return S_OK;
}

} // namespace pixmo::com::test
