#include "faces/com/control/observers.h"

namespace pixmo::com {

void Observers::pictureChanged(IDataObject& data) {
    if (data_)
        data_->SendOnDataChange(&data, 0, 0);
    if (!view_ || (viewAspects_ & DVASPECT_CONTENT) == 0)
        return;
    const auto sink = view_;
    if (viewFlags_ & ADVF_ONLYONCE)
        view_.reset();
    sink->OnViewChange(DVASPECT_CONTENT, -1);
}

void Observers::saved() {
    if (object_)
        object_->SendOnSave();
}

void Observers::closed() {
    if (object_)
        object_->SendOnClose();
}

HRESULT Observers::adviseObject(IAdviseSink* sink, DWORD* cookie) {
    if (!object_)
        if (const HRESULT made = CreateOleAdviseHolder(object_.receive()); FAILED(made))
            return made;
    return object_->Advise(sink, cookie);
}

HRESULT Observers::unadviseObject(DWORD cookie) {
    return object_ ? object_->Unadvise(cookie) : OLE_E_NOCONNECTION;
}

HRESULT Observers::enumerateObject(IEnumSTATDATA** sinks) {
    if (!sinks)
        return E_POINTER;
    *sinks = nullptr;
    return object_ ? object_->EnumAdvise(sinks) : S_OK;
}

HRESULT Observers::adviseData(IDataObject& data, const FORMATETC* format, DWORD flags, IAdviseSink* sink,
                              DWORD* cookie) {
    if (!data_)
        if (const HRESULT made = CreateDataAdviseHolder(data_.receive()); FAILED(made))
            return made;
    FORMATETC wanted = *format;
    return data_->Advise(&data, &wanted, flags, sink, cookie);
}

HRESULT Observers::unadviseData(DWORD cookie) {
    return data_ ? data_->Unadvise(cookie) : OLE_E_NOCONNECTION;
}

HRESULT Observers::enumerateData(IEnumSTATDATA** sinks) {
    if (!sinks)
        return E_POINTER;
    *sinks = nullptr;
    return data_ ? data_->EnumAdvise(sinks) : S_OK;
}

void Observers::adviseView(DWORD aspects, DWORD flags, IAdviseSink* sink) {
    view_ = ComPtr<IAdviseSink>(sink);
    viewAspects_ = sink ? aspects : 0;
    viewFlags_ = sink ? flags : 0;
}

void Observers::view(DWORD* aspects, DWORD* flags, IAdviseSink** sink) const {
    if (aspects)
        *aspects = viewAspects_;
    if (flags)
        *flags = viewFlags_;
    if (sink)
        view_.copyTo(sink);
}

void Observers::release() {
    object_.reset();
    data_.reset();
    view_.reset();
}

} // namespace pixmo::com
