#include "faces/com/control/browsingpart.h"

#include "faces/com/base/widetext.h"
#include "faces/com/control/identifiers.h"
#include "faces/com/control/propertyvalues.h"

#include <algorithm>
#include <cwchar>

namespace pixmo::com {

/// Empty for a number that is no property's.
std::string BrowsingPart::nameOf(DISPID property) const {
    ComPtr<ITypeInfo> info;
    Bstr name;
    UINT count = 0;
    if (FAILED(context_.dispatcher().typeInfo(0, info.receive())) ||
        FAILED(info->GetNames(property, name.receive(), 1, &count)) || count == 0)
        return {};
    return toUtf8(name.view());
}

STDMETHODIMP BrowsingPart::GetDisplayString(DISPID property, BSTR* text) {
    return call("GetDisplayString", [&]() -> HRESULT {
        checkPointer(text);
        *text = nullptr;
        const std::string name = nameOf(property);
        const auto values = predefinedValues(name);
        if (values.empty())
            return S_FALSE;
        const PropertyValue like = int32_t{0};
        const auto current = std::get<int32_t>(convertProperty(context_.control()->property(name), like));
        const auto found = std::ranges::find(values, current, &PredefinedValue::value);
        if (found == values.end())
            return S_FALSE;
        *text = Bstr(std::wstring_view(found->text)).detach();
        return S_OK;
    });
}

STDMETHODIMP BrowsingPart::MapPropertyToPage(DISPID, CLSID* page) {
    if (!page)
        return E_POINTER;
    *page = CLSID_NULL;
    return PERPROP_E_NOPAGEAVAILABLE;
}

STDMETHODIMP BrowsingPart::GetPredefinedStrings(DISPID property, CALPOLESTR* texts, CADWORD* cookies) {
    return call("GetPredefinedStrings", [&]() -> HRESULT {
        checkPointer(texts);
        checkPointer(cookies);
        *texts = {};
        *cookies = {};
        const auto values = predefinedValues(nameOf(property));
        if (values.empty())
            return S_FALSE;
        texts->pElems = static_cast<LPOLESTR*>(CoTaskMemAlloc(values.size() * sizeof(LPOLESTR)));
        cookies->pElems = static_cast<DWORD*>(CoTaskMemAlloc(values.size() * sizeof(DWORD)));
        if (!texts->pElems || !cookies->pElems) {
            CoTaskMemFree(std::exchange(texts->pElems, nullptr));
            CoTaskMemFree(std::exchange(cookies->pElems, nullptr));
            return E_OUTOFMEMORY;
        }
        for (const PredefinedValue& value : values) {
            texts->pElems[texts->cElems++] = copyForHost(value.text);
            cookies->pElems[cookies->cElems++] = static_cast<DWORD>(value.value);
        }
        return S_OK;
    });
}

STDMETHODIMP BrowsingPart::GetPredefinedValue(DISPID property, DWORD cookie, VARIANT* value) {
    return call("GetPredefinedValue", [&]() -> HRESULT {
        checkPointer(value);
        VariantInit(value);
        const std::string name = nameOf(property);
        const auto values = predefinedValues(name);
        if (std::ranges::find(values, static_cast<int32_t>(cookie), &PredefinedValue::value) == values.end())
            return E_INVALIDARG;
        const PropertyValue typed =
            convertProperty(static_cast<int32_t>(cookie), findProperty(name)->defaultValue);
        return VariantCopy(value, toVariant(typed).get());
    });
}

} // namespace pixmo::com
