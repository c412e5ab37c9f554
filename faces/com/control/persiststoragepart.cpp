#include "faces/com/control/persiststoragepart.h"

#include "faces/com/control/identifiers.h"
#include "faces/com/control/statestream.h"

namespace pixmo::com {

namespace {

constexpr const wchar_t* Contents = L"CONTENTS";

} // namespace

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
