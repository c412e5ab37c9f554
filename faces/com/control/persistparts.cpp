#include "faces/com/control/persistparts.h"

#include "faces/com/control/hostpropertybag.h"
#include "faces/com/control/identifiers.h"
#include "faces/com/control/propertystate.h"
#include "faces/com/control/statestream.h"

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

constexpr const wchar_t* Contents = L"CONTENTS";

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

STDMETHODIMP PersistStreamPart::GetClassID(CLSID* classId) {
    if (!classId)
        return E_POINTER;
    *classId = CLSID_ImageView;
    return S_OK;
}

STDMETHODIMP PersistStreamPart::IsDirty() {
    return context_.isDirty() ? S_OK : S_FALSE;
}

STDMETHODIMP PersistStreamPart::Load(IStream* stream) {
    return call("UserControl_ReadProperties", [&] {
        checkPointer(stream);
        loadState(context_, *stream);
        return S_OK;
    });
}

STDMETHODIMP PersistStreamPart::Save(IStream* stream, BOOL clearDirty) {
    return call("UserControl_WriteProperties", [&] {
        checkPointer(stream);
        saveState(context_, *stream);
        if (clearDirty)
            context_.setDirty(false);
        return S_OK;
    });
}

STDMETHODIMP PersistStreamPart::GetSizeMax(ULARGE_INTEGER* size) {
    return call("GetSizeMax", [&] {
        checkPointer(size);
        PropertyState state;
        context_.write(state);
        size->QuadPart = sizeof(uint32_t) + state.toBytes().size();
        return S_OK;
    });
}

STDMETHODIMP PersistStreamPart::InitNew() {
    return call("UserControl_InitProperties", [&] {
        context_.initialise();
        return S_OK;
    });
}

STDMETHODIMP PersistStoragePart::GetClassID(CLSID* classId) {
    if (!classId)
        return E_POINTER;
    *classId = CLSID_ImageView;
    return S_OK;
}

STDMETHODIMP PersistStoragePart::IsDirty() {
    return context_.isDirty() ? S_OK : S_FALSE;
}

STDMETHODIMP PersistStoragePart::InitNew(IStorage* storage) {
    return call("UserControl_InitProperties", [&] {
        checkPointer(storage);
        context_.initialise();
        return S_OK;
    });
}

STDMETHODIMP PersistStoragePart::Load(IStorage* storage) {
    return call("UserControl_ReadProperties", [&] {
        checkPointer(storage);
        ComPtr<IStream> stream;
        check(storage->OpenStream(Contents, nullptr, STGM_READ | STGM_SHARE_EXCLUSIVE, 0, stream.receive()));
        loadState(context_, *stream);
        return S_OK;
    });
}

STDMETHODIMP PersistStoragePart::Save(IStorage* storage, BOOL) {
    return call("UserControl_WriteProperties", [&]() -> HRESULT {
        checkPointer(storage);
        if (!mayWrite_)
            return E_UNEXPECTED;
        check(WriteClassStg(storage, CLSID_ImageView));
        ComPtr<IStream> stream;
        check(storage->CreateStream(Contents, STGM_CREATE | STGM_WRITE | STGM_SHARE_EXCLUSIVE, 0, 0,
                                    stream.receive()));
        saveState(context_, *stream);
        mayWrite_ = false;
        return S_OK;
    });
}

STDMETHODIMP PersistStoragePart::SaveCompleted(IStorage*) {
    if (!mayWrite_) {
        context_.setDirty(false);
        context_.observers().saved();
    }
    mayWrite_ = true;
    return S_OK;
}

STDMETHODIMP PersistStoragePart::HandsOffStorage() {
    return S_OK;
}

} // namespace pixmo::com
