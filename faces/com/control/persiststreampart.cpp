#include "faces/com/control/persiststreampart.h"

#include "faces/com/control/identifiers.h"
#include "faces/com/control/propertystate.h"
#include "faces/com/control/statestream.h"

namespace pixmo::com {

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

} // namespace pixmo::com
