#pragma once

#include "faces/com/base/comptr.h"

#include <oleidl.h>

namespace pixmo::com {

/// Whom the host has told to watch the control's picture, data and file.
class Observers {
public:
    /// `data` is the control's own data object, asked when a watcher wants data along with the notice.
    void pictureChanged(IDataObject& data);
    void saved();
    void closed();

    HRESULT adviseObject(IAdviseSink* sink, DWORD* cookie);
    HRESULT unadviseObject(DWORD cookie);
    HRESULT enumerateObject(IEnumSTATDATA** sinks);

    HRESULT adviseData(IDataObject& data, const FORMATETC* format, DWORD flags, IAdviseSink* sink,
                       DWORD* cookie);
    HRESULT unadviseData(DWORD cookie);
    HRESULT enumerateData(IEnumSTATDATA** sinks);

    /// A null sink ends it.
    void adviseView(DWORD aspects, DWORD flags, IAdviseSink* sink);
    void view(DWORD* aspects, DWORD* flags, IAdviseSink** sink) const;

    /// Everyone is forgotten.
    void release();

private:
    ComPtr<IOleAdviseHolder> object_;
    ComPtr<IDataAdviseHolder> data_;
    ComPtr<IAdviseSink> view_;
    DWORD viewAspects_ = 0;
    DWORD viewFlags_ = 0;
};

} // namespace pixmo::com
