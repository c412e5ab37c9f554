#pragma once

#include "faces/com/control/part.h"

#include <objidl.h>

namespace pixmo::com {

/// The control's picture as data: an enhanced metafile, or one of the older kind.
class DataPart : public Part<IDataObject> {
public:
    using Part::Part;

    STDMETHODIMP GetData(FORMATETC* format, STGMEDIUM* medium) override;
    STDMETHODIMP GetDataHere(FORMATETC* format, STGMEDIUM* medium) override;
    STDMETHODIMP QueryGetData(FORMATETC* format) override;
    STDMETHODIMP GetCanonicalFormatEtc(FORMATETC* format, FORMATETC* canonical) override;
    STDMETHODIMP SetData(FORMATETC* format, STGMEDIUM* medium, BOOL release) override;
    STDMETHODIMP EnumFormatEtc(DWORD direction, IEnumFORMATETC** formats) override;
    STDMETHODIMP DAdvise(FORMATETC* format, DWORD flags, IAdviseSink* sink, DWORD* cookie) override;
    STDMETHODIMP DUnadvise(DWORD cookie) override;
    STDMETHODIMP EnumDAdvise(IEnumSTATDATA** sinks) override;

protected:
    ~DataPart() = default;

private:
    HENHMETAFILE drawEnhanced();
    HGLOBAL drawPlain();
};

} // namespace pixmo::com
