#include "faces/com/control/persistbagpart.h"

#include "faces/com/control/hostpropertybag.h"
#include "faces/com/control/identifiers.h"

namespace pixmo::com {

namespace {

/// The size is kept among the properties when it is not the usual one.
constexpr const char* Width = "_ExtentX";
constexpr const char* Height = "_ExtentY";

LONG readMeasure(const PropertyBag& bag, const char* key, LONG usual) {
    const PropertyValue like = static_cast<int32_t>(usual);
    try {
        const auto measure = std::get<int32_t>(convertProperty(bag.ReadProperty(key, like), like));
        return measure >= 0 ? measure : usual;
    } catch (const Error&) {
        return usual;
    }
}

void writeMeasure(PropertyBag& bag, const char* key, LONG measure, LONG usual) {
    bag.WriteProperty(key, static_cast<int32_t>(measure), static_cast<int32_t>(usual));
}

} // namespace

STDMETHODIMP PersistBagPart::GetClassID(CLSID* classId) {
    if (!classId)
        return E_POINTER;
    *classId = CLSID_ImageView;
    return S_OK;
}

STDMETHODIMP PersistBagPart::InitNew() {
    return call("UserControl_InitProperties", [&] {
        context_.initialise();
        return S_OK;
    });
}

STDMETHODIMP PersistBagPart::Load(IPropertyBag* bag, IErrorLog* log) {
    return call("UserControl_ReadProperties", [&] {
        checkPointer(bag);
        const HostPropertyBag properties(*bag, log);
        const SIZEL usual = context_.extent();
        context_.restoreExtent(
            {readMeasure(properties, Width, usual.cx), readMeasure(properties, Height, usual.cy)});
        context_.read(properties);
        return S_OK;
    });
}

STDMETHODIMP PersistBagPart::Save(IPropertyBag* bag, BOOL clearDirty, BOOL) {
    return call("UserControl_WriteProperties", [&] {
        checkPointer(bag);
        HostPropertyBag properties(*bag);
        context_.write(properties);
        const SIZEL usual = ControlContext::usualExtent();
        writeMeasure(properties, Width, context_.extent().cx, usual.cx);
        writeMeasure(properties, Height, context_.extent().cy, usual.cy);
        if (clearDirty)
            context_.setDirty(false);
        return S_OK;
    });
}

} // namespace pixmo::com
