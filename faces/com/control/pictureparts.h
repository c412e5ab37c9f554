#pragma once

#include "faces/com/control/part.h"

#include <objidl.h>
#include <ocidl.h>

namespace pixmo::com {

/// The control's picture: its page without toolbar and status, complete also without a window.
class ViewPart : public Part<IViewObjectEx, IViewObject2, IViewObject> {
public:
    using Part::Part;

    STDMETHODIMP Draw(DWORD aspect, LONG index, void* aspectInfo, DVTARGETDEVICE* device, HDC reference,
                      HDC target, LPCRECTL bounds, LPCRECTL metafileBounds, BOOL(CALLBACK* goOn)(ULONG_PTR),
                      ULONG_PTR argument) override;
    STDMETHODIMP GetColorSet(DWORD aspect, LONG index, void* aspectInfo, DVTARGETDEVICE* device,
                             HDC reference, LOGPALETTE** colours) override;
    STDMETHODIMP Freeze(DWORD aspect, LONG index, void* aspectInfo, DWORD* key) override;
    STDMETHODIMP Unfreeze(DWORD key) override;
    STDMETHODIMP SetAdvise(DWORD aspects, DWORD flags, IAdviseSink* sink) override;
    STDMETHODIMP GetAdvise(DWORD* aspects, DWORD* flags, IAdviseSink** sink) override;
    STDMETHODIMP GetExtent(DWORD aspect, LONG index, DVTARGETDEVICE* device, LPSIZEL size) override;
    STDMETHODIMP GetRect(DWORD aspect, LPRECTL rectangle) override;
    STDMETHODIMP GetViewStatus(DWORD* status) override;
    STDMETHODIMP QueryHitPoint(DWORD aspect, LPCRECT bounds, POINT point, LONG close, DWORD* result) override;
    STDMETHODIMP QueryHitRect(DWORD aspect, LPCRECT bounds, LPCRECT rectangle, LONG close,
                              DWORD* result) override;
    STDMETHODIMP GetNaturalExtent(DWORD aspect, LONG index, DVTARGETDEVICE* device, HDC reference,
                                  DVEXTENTINFO* info, LPSIZEL size) override;

protected:
    ~ViewPart() = default;
};

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
