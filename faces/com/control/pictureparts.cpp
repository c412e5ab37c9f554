#include "faces/com/control/pictureparts.h"

#include "faces/com/base/comenum.h"
#include "faces/com/control/measures.h"

#include <array>

namespace pixmo::com {

namespace {

constexpr std::array Formats{
    FORMATETC{CF_METAFILEPICT, nullptr, DVASPECT_CONTENT, -1, TYMED_MFPICT},
    FORMATETC{CF_ENHMETAFILE, nullptr, DVASPECT_CONTENT, -1, TYMED_ENHMF},
};

HRESULT checkFormat(const FORMATETC& wanted) {
    HRESULT result = DV_E_FORMATETC;
    for (const FORMATETC& offered : Formats) {
        if (wanted.cfFormat != offered.cfFormat)
            continue;
        if (wanted.dwAspect != offered.dwAspect)
            result = DV_E_DVASPECT;
        else if (wanted.lindex != offered.lindex)
            result = DV_E_LINDEX;
        else if ((wanted.tymed & offered.tymed) == 0)
            result = DV_E_TYMED;
        else
            return S_OK;
    }
    return result;
}

RECT pixelsOf(const SIZEL& extent) {
    const SIZE resolution = screenResolution();
    return {0, 0, toPixels(extent.cx, static_cast<int>(resolution.cx)),
            toPixels(extent.cy, static_cast<int>(resolution.cy))};
}

} // namespace

STDMETHODIMP ViewPart::Draw(DWORD aspect, LONG, void*, DVTARGETDEVICE*, HDC, HDC target, LPCRECTL bounds,
                            LPCRECTL, BOOL(CALLBACK*)(ULONG_PTR), ULONG_PTR) {
    return call("Draw", [&]() -> HRESULT {
        checkPointer(bounds);
        if (aspect != DVASPECT_CONTENT && aspect != DVASPECT_OPAQUE)
            return DV_E_DVASPECT;
        if (!target)
            return E_INVALIDARG;
        const RECT place{bounds->left, bounds->top, bounds->right, bounds->bottom};
        const int saved = SaveDC(target);
        context_.readyFace().draw(target, place);
        RestoreDC(target, saved);
        return S_OK;
    });
}

STDMETHODIMP ViewPart::GetColorSet(DWORD, LONG, void*, DVTARGETDEVICE*, HDC, LOGPALETTE** colours) {
    if (!colours)
        return E_POINTER;
    *colours = nullptr;
    return S_FALSE;
}

STDMETHODIMP ViewPart::Freeze(DWORD, LONG, void*, DWORD*) {
    return E_NOTIMPL;
}

STDMETHODIMP ViewPart::Unfreeze(DWORD) {
    return E_NOTIMPL;
}

STDMETHODIMP ViewPart::SetAdvise(DWORD aspects, DWORD flags, IAdviseSink* sink) {
    return call("SetAdvise", [&] {
        context_.observers().adviseView(aspects, flags, sink);
        if (sink && (flags & ADVF_PRIMEFIRST) != 0)
            context_.pictureChanged();
        return S_OK;
    });
}

STDMETHODIMP ViewPart::GetAdvise(DWORD* aspects, DWORD* flags, IAdviseSink** sink) {
    context_.observers().view(aspects, flags, sink);
    return S_OK;
}

STDMETHODIMP ViewPart::GetExtent(DWORD aspect, LONG, DVTARGETDEVICE*, LPSIZEL size) {
    if (!size)
        return E_POINTER;
    if (aspect != DVASPECT_CONTENT)
        return DV_E_DVASPECT;
    *size = context_.extent();
    return S_OK;
}

STDMETHODIMP ViewPart::GetRect(DWORD aspect, LPRECTL rectangle) {
    if (!rectangle)
        return E_POINTER;
    *rectangle = {};
    if (aspect != DVASPECT_CONTENT && aspect != DVASPECT_OPAQUE)
        return DV_E_DVASPECT;
    rectangle->right = context_.extent().cx;
    rectangle->bottom = context_.extent().cy;
    return S_OK;
}

STDMETHODIMP ViewPart::GetViewStatus(DWORD* status) {
    if (!status)
        return E_POINTER;
    *status = VIEWSTATUS_OPAQUE;
    return S_OK;
}

STDMETHODIMP ViewPart::QueryHitPoint(DWORD aspect, LPCRECT bounds, POINT point, LONG, DWORD* result) {
    if (!bounds || !result)
        return E_POINTER;
    if (aspect != DVASPECT_CONTENT)
        return E_FAIL;
    *result = PtInRect(bounds, point) ? HITRESULT_HIT : HITRESULT_OUTSIDE;
    return S_OK;
}

STDMETHODIMP ViewPart::QueryHitRect(DWORD aspect, LPCRECT bounds, LPCRECT rectangle, LONG, DWORD* result) {
    if (!bounds || !rectangle || !result)
        return E_POINTER;
    if (aspect != DVASPECT_CONTENT)
        return E_FAIL;
    RECT common{};
    *result = IntersectRect(&common, bounds, rectangle) ? HITRESULT_HIT : HITRESULT_OUTSIDE;
    return S_OK;
}

STDMETHODIMP ViewPart::GetNaturalExtent(DWORD, LONG, DVTARGETDEVICE*, HDC, DVEXTENTINFO*, LPSIZEL) {
    return E_NOTIMPL;
}

STDMETHODIMP DataPart::GetData(FORMATETC* format, STGMEDIUM* medium) {
    return call("GetData", [&]() -> HRESULT {
        checkPointer(format);
        checkPointer(medium);
        *medium = {};
        if (const HRESULT known = checkFormat(*format); FAILED(known))
            return known;
        if (format->cfFormat == CF_ENHMETAFILE) {
            medium->tymed = TYMED_ENHMF;
            medium->hEnhMetaFile = drawEnhanced();
        } else {
            medium->tymed = TYMED_MFPICT;
            medium->hMetaFilePict = drawPlain();
        }
        return medium->hGlobal ? S_OK : E_OUTOFMEMORY;
    });
}

HENHMETAFILE DataPart::drawEnhanced() {
    const SIZEL extent = context_.extent();
    const RECT frame{0, 0, extent.cx, extent.cy};
    const HDC target = CreateEnhMetaFileW(nullptr, nullptr, &frame, nullptr);
    if (!target)
        return nullptr;
    context_.readyFace().draw(target, pixelsOf(extent));
    return CloseEnhMetaFile(target);
}

HGLOBAL DataPart::drawPlain() {
    const SIZEL extent = context_.extent();
    const RECT place = pixelsOf(extent);
    const HDC target = CreateMetaFileW(nullptr);
    if (!target)
        return nullptr;
    SetMapMode(target, MM_ANISOTROPIC);
    SetWindowOrgEx(target, 0, 0, nullptr);
    SetWindowExtEx(target, place.right, place.bottom, nullptr);
    context_.readyFace().draw(target, place);
    const HMETAFILE picture = CloseMetaFile(target);
    const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, sizeof(METAFILEPICT));
    if (!picture || !memory) {
        DeleteMetaFile(picture);
        GlobalFree(memory);
        return nullptr;
    }
    *static_cast<METAFILEPICT*>(GlobalLock(memory)) = {MM_ANISOTROPIC, extent.cx, extent.cy, picture};
    GlobalUnlock(memory);
    return memory;
}

STDMETHODIMP DataPart::GetDataHere(FORMATETC*, STGMEDIUM*) {
    return E_NOTIMPL;
}

STDMETHODIMP DataPart::QueryGetData(FORMATETC* format) {
    return format ? checkFormat(*format) : E_POINTER;
}

STDMETHODIMP DataPart::GetCanonicalFormatEtc(FORMATETC* format, FORMATETC* canonical) {
    if (!format || !canonical)
        return E_POINTER;
    *canonical = *format;
    canonical->ptd = nullptr;
    return DATA_S_SAMEFORMATETC;
}

STDMETHODIMP DataPart::SetData(FORMATETC*, STGMEDIUM*, BOOL) {
    return E_NOTIMPL;
}

STDMETHODIMP DataPart::EnumFormatEtc(DWORD direction, IEnumFORMATETC** formats) {
    return call("EnumFormatEtc", [&]() -> HRESULT {
        checkPointer(formats);
        *formats = nullptr;
        if (direction != DATADIR_GET)
            return E_NOTIMPL;
        *formats = makeObject<ComEnum<IEnumFORMATETC, FORMATETC>>(
                       std::vector<FORMATETC>(Formats.begin(), Formats.end()))
                       .detach();
        return S_OK;
    });
}

STDMETHODIMP DataPart::DAdvise(FORMATETC* format, DWORD flags, IAdviseSink* sink, DWORD* cookie) {
    return call("DAdvise", [&]() -> HRESULT {
        checkPointer(format);
        if (const HRESULT known = checkFormat(*format); FAILED(known))
            return known;
        return context_.observers().adviseData(*this, format, flags, sink, cookie);
    });
}

STDMETHODIMP DataPart::DUnadvise(DWORD cookie) {
    return context_.observers().unadviseData(cookie);
}

STDMETHODIMP DataPart::EnumDAdvise(IEnumSTATDATA** sinks) {
    return context_.observers().enumerateData(sinks);
}

} // namespace pixmo::com
