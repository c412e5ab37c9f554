#include "faces/com/control/describingparts.h"

#include "faces/com/base/comenum.h"
#include "faces/com/base/typelibrary.h"
#include "faces/com/base/widetext.h"
#include "faces/com/control/identifiers.h"
#include "faces/com/control/propertyvalues.h"

#include <algorithm>
#include <array>
#include <cwchar>

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

STDMETHODIMP ErrorInfoPart::InterfaceSupportsErrorInfo(REFIID iid) {
    const std::array described{IID_IImageView, IID_IDispatch, IID_IPersistPropertyBag, IID_IPersistStreamInit,
                               IID_IPersistStorage};
    const bool isDescribed =
        std::ranges::any_of(described, [&](const IID& known) { return IsEqualIID(known, iid); });
    return isDescribed ? S_OK : S_FALSE;
}

STDMETHODIMP ConnectionsPart::EnumConnectionPoints(IEnumConnectionPoints** points) {
    return call("EnumConnectionPoints", [&] {
        checkPointer(points);
        const auto all = context_.sinks().points();
        *points = makeObject<ComEnum<IEnumConnectionPoints, IConnectionPoint*>>(
                      std::vector<IConnectionPoint*>(all.begin(), all.end()))
                      .detach();
        return S_OK;
    });
}

STDMETHODIMP ConnectionsPart::FindConnectionPoint(REFIID iid, IConnectionPoint** point) {
    if (!point)
        return E_POINTER;
    *point = nullptr;
    for (ConnectionPoint* candidate : context_.sinks().points())
        if (IsEqualIID(iid, candidate->outgoing()))
            return ComPtr<IConnectionPoint>(candidate).copyTo(point);
    return CONNECT_E_NOCONNECTION;
}

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
        const auto values = propertyChoices(name);
        if (values.empty())
            return S_FALSE;
        const PropertyValue like = int32_t{0};
        const auto current = std::get<int32_t>(convertProperty(context_.control()->property(name), like));
        const auto found = std::ranges::find(values, current, &PropertyChoice::value);
        if (found == values.end())
            return S_FALSE;
        *text = Bstr(std::string_view(found->text)).detach();
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
        const auto values = propertyChoices(nameOf(property));
        if (values.empty())
            return S_FALSE;
        texts->pElems = static_cast<LPOLESTR*>(CoTaskMemAlloc(values.size() * sizeof(LPOLESTR)));
        cookies->pElems = static_cast<DWORD*>(CoTaskMemAlloc(values.size() * sizeof(DWORD)));
        if (!texts->pElems || !cookies->pElems) {
            CoTaskMemFree(std::exchange(texts->pElems, nullptr));
            CoTaskMemFree(std::exchange(cookies->pElems, nullptr));
            return E_OUTOFMEMORY;
        }
        for (const PropertyChoice& value : values) {
            texts->pElems[texts->cElems++] = copyForHost(toWide(value.text));
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
        const auto values = propertyChoices(name);
        if (std::ranges::find(values, static_cast<int32_t>(cookie), &PropertyChoice::value) == values.end())
            return E_INVALIDARG;
        const PropertyValue typed =
            convertProperty(static_cast<int32_t>(cookie), findProperty(name)->defaultValue);
        return VariantCopy(value, toVariant(typed).get());
    });
}

STDMETHODIMP PagesPart::GetPages(CAUUID* pages) {
    if (!pages)
        return E_POINTER;
    *pages = {};
    pages->pElems = static_cast<GUID*>(CoTaskMemAlloc(sizeof(GUID)));
    if (!pages->pElems)
        return E_OUTOFMEMORY;
    pages->pElems[0] = ClassOfPage;
    pages->cElems = 1;
    return S_OK;
}

} // namespace pixmo::com
