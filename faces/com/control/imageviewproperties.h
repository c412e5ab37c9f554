#pragma once

#include "faces/com/control/identifiers.h"
#include "faces/com/control/part.h"

#include <string_view>

namespace pixmo::com {

/// The properties as the dual interface has them: each by its name in the control's own table.
class ImageViewProperties : public Part<IImageView, IDispatch> {
public:
    using Part::Part;

    STDMETHODIMP get_MachineName(BSTR* value) override { return get("MachineName", value); }
    STDMETHODIMP get_UserLogin(BSTR* value) override { return get("UserLogin", value); }
    STDMETHODIMP get_NoR(SHORT* value) override { return get("NoR", value); }
    STDMETHODIMP put_NoR(SHORT value) override { return put("NoR", value); }
    STDMETHODIMP get_PrintPageCount(LONG* value) override { return get("PrintPageCount", value); }
    STDMETHODIMP get_PrintPageSelection(BSTR* value) override { return get("PrintPageSelection", value); }
    STDMETHODIMP get_DocID(LONG* value) override { return get("DocID", value); }
    STDMETHODIMP put_DocID(LONG value) override { return put("DocID", value); }
    STDMETHODIMP get_Page(SHORT* value) override { return get("Page", value); }
    STDMETHODIMP put_Page(SHORT value) override { return put("Page", value); }
    STDMETHODIMP get_PageCount(SHORT* value) override { return get("PageCount", value); }
    STDMETHODIMP get_DfPrintAllPages(VARIANT_BOOL* value) override { return get("DfPrintAllPages", value); }
    STDMETHODIMP put_DfPrintAllPages(VARIANT_BOOL value) override { return put("DfPrintAllPages", value); }
    STDMETHODIMP get_DfPrintPaperSize(::vlPaperSize* value) override {
        return get("DfPrintPaperSize", value);
    }
    STDMETHODIMP put_DfPrintPaperSize(::vlPaperSize value) override { return put("DfPrintPaperSize", value); }
    STDMETHODIMP get_PrintPageNumStyle(SHORT* value) override { return get("PrintPageNumStyle", value); }
    STDMETHODIMP put_PrintPageNumStyle(SHORT value) override { return put("PrintPageNumStyle", value); }
    STDMETHODIMP get_ThumbsAvailable(VARIANT_BOOL* value) override { return get("ThumbsAvailable", value); }
    STDMETHODIMP put_ThumbsAvailable(VARIANT_BOOL value) override { return put("ThumbsAvailable", value); }
    STDMETHODIMP get_PrintCancelJob(VARIANT_BOOL* value) override { return get("PrintCancelJob", value); }
    STDMETHODIMP put_PrintCancelJob(VARIANT_BOOL value) override { return put("PrintCancelJob", value); }
    STDMETHODIMP get_PrintCapFontSize(SHORT* value) override { return get("PrintCapFontSize", value); }
    STDMETHODIMP put_PrintCapFontSize(SHORT value) override { return put("PrintCapFontSize", value); }
    STDMETHODIMP get_PrintPageNums(VARIANT_BOOL* value) override { return get("PrintPageNums", value); }
    STDMETHODIMP put_PrintPageNums(VARIANT_BOOL value) override { return put("PrintPageNums", value); }
    STDMETHODIMP get_PrintImageDesc(BSTR* value) override { return get("PrintImageDesc", value); }
    STDMETHODIMP put_PrintImageDesc(BSTR value) override { return put("PrintImageDesc", value); }
    STDMETHODIMP get_PrintCoverSheet(VARIANT_BOOL* value) override { return get("PrintCoverSheet", value); }
    STDMETHODIMP put_PrintCoverSheet(VARIANT_BOOL value) override { return put("PrintCoverSheet", value); }
    STDMETHODIMP get_PrintUserName(BSTR* value) override { return get("PrintUserName", value); }
    STDMETHODIMP put_PrintUserName(BSTR value) override { return put("PrintUserName", value); }
    STDMETHODIMP get_PrintItemDesc(BSTR* value) override { return get("PrintItemDesc", value); }
    STDMETHODIMP put_PrintItemDesc(BSTR value) override { return put("PrintItemDesc", value); }
    STDMETHODIMP get_PrintFee(BSTR* value) override { return get("PrintFee", value); }
    STDMETHODIMP put_PrintFee(BSTR value) override { return put("PrintFee", value); }
    STDMETHODIMP get_Delimiter(BSTR* value) override { return get("Delimiter", value); }
    STDMETHODIMP put_Delimiter(BSTR value) override { return put("Delimiter", value); }
    STDMETHODIMP get_PublicKey(BSTR* value) override { return get("PublicKey", value); }
    STDMETHODIMP put_PublicKey(BSTR value) override { return put("PublicKey", value); }
    STDMETHODIMP get_EncBytes(LONG* value) override { return get("EncBytes", value); }
    STDMETHODIMP put_EncBytes(LONG value) override { return put("EncBytes", value); }
    STDMETHODIMP get_PrintCaption(BSTR* value) override { return get("PrintCaption", value); }
    STDMETHODIMP put_PrintCaption(BSTR value) override { return put("PrintCaption", value); }
    STDMETHODIMP get_EngineAddress(BSTR* value) override { return get("EngineAddress", value); }
    STDMETHODIMP put_EngineAddress(BSTR value) override { return put("EngineAddress", value); }
    STDMETHODIMP get_FetchDelay(LONG* value) override { return get("FetchDelay", value); }
    STDMETHODIMP put_FetchDelay(LONG value) override { return put("FetchDelay", value); }
    STDMETHODIMP get_ResizeDelay(LONG* value) override { return get("ResizeDelay", value); }
    STDMETHODIMP put_ResizeDelay(LONG value) override { return put("ResizeDelay", value); }
    STDMETHODIMP get_BorderStyle(SHORT* value) override { return get("BorderStyle", value); }
    STDMETHODIMP put_BorderStyle(SHORT value) override { return put("BorderStyle", value); }
    STDMETHODIMP get_MinLogLevel(LONG* value) override { return get("MinLogLevel", value); }
    STDMETHODIMP put_MinLogLevel(LONG value) override { return put("MinLogLevel", value); }
    STDMETHODIMP get_LogFileName(BSTR* value) override { return get("LogFileName", value); }
    STDMETHODIMP put_LogFileName(BSTR value) override { return put("LogFileName", value); }
    STDMETHODIMP get_BookmarkAvailable(VARIANT_BOOL* value) override {
        return get("BookmarkAvailable", value);
    }
    STDMETHODIMP put_BookmarkAvailable(VARIANT_BOOL value) override {
        return put("BookmarkAvailable", value);
    }
    STDMETHODIMP get_BackColor(OLE_COLOR* value) override { return get("BackColor", value); }
    STDMETHODIMP put_BackColor(OLE_COLOR value) override { return put("BackColor", value); }
    STDMETHODIMP get_ForeColor(OLE_COLOR* value) override { return get("ForeColor", value); }
    STDMETHODIMP put_ForeColor(OLE_COLOR value) override { return put("ForeColor", value); }
    STDMETHODIMP get_Enabled(VARIANT_BOOL* value) override { return get("Enabled", value); }
    STDMETHODIMP put_Enabled(VARIANT_BOOL value) override { return put("Enabled", value); }
    STDMETHODIMP get_Font(IFontDisp** value) override;
    STDMETHODIMP put_Font(IFontDisp* value) override { return putFont(value); }
    STDMETHODIMP putref_Font(IFontDisp* value) override { return putFont(value); }
    STDMETHODIMP get_hWnd(LONG* value) override;

protected:
    ~ImageViewProperties() = default;

    template <class Body>
    HRESULT call(const char* procedure, Body&& body) {
        return Part::call(procedure, [&] {
            body();
            return S_OK;
        });
    }

private:
    template <class Type>
    HRESULT get(const char* name, Type* value) {
        return call(name, [&] {
            checkPointer(value);
            read(context_.control()->property(name), *value);
        });
    }
    HRESULT put(const char* name, const PropertyValue& value);
    HRESULT put(const char* name, BSTR value) { return put(name, PropertyValue(textOf(value))); }
    HRESULT put(const char* name, SHORT value) { return put(name, PropertyValue(int16_t{value})); }
    HRESULT put(const char* name, LONG value) { return put(name, PropertyValue(int32_t{value})); }
    HRESULT put(const char* name, OLE_COLOR value) { return put(name, PropertyValue(Colour{value})); }
    HRESULT put(const char* name, ::vlPaperSize value) { return put(name, static_cast<LONG>(value)); }
    HRESULT putFont(IFontDisp* value);

    static void read(const PropertyValue& value, BSTR& target);
    static void read(const PropertyValue& value, SHORT& target);
    static void read(const PropertyValue& value, LONG& target);
    static void read(const PropertyValue& value, OLE_COLOR& target);
    static void read(const PropertyValue& value, ::vlPaperSize& target);
};

} // namespace pixmo::com
