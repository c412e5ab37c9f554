#include "faces/com/control/propertypagewindow.h"

#include "core/control/propertypage.h"
#include "faces/com/base/boundary.h"
#include "faces/com/base/module.h"

#include <array>
#include <commctrl.h>
#include <cstdint>

namespace pixmo::com {

namespace {

using Kind = PropertyFieldKind;

int rowsInColumn() {
    return (static_cast<int>(propertyFields().size()) + 1) / 2;
}

/// In dialog units.
namespace unit {
constexpr int Margin = 7;
constexpr int RowHeight = 17;
constexpr int FieldHeight = 12;
constexpr int ListHeight = 120;
constexpr int TextHeight = 8;
constexpr int LabelWidth = 68;
constexpr int FieldWidth = 98;
constexpr int ColumnWidth = LabelWidth + FieldWidth + 10;
constexpr int Width = 2 * ColumnWidth + 2 * Margin - 10;
} // namespace unit

int pageHeight() {
    return rowsInColumn() * unit::RowHeight + 2 * unit::Margin;
}

constexpr int FirstId = 100;

/// A dialog without items; its fields are made by the table of rows.
struct Template {
    DLGTEMPLATE head{WS_CHILD | DS_CONTROL | DS_SETFONT, WS_EX_CONTROLPARENT, 0, 0, 0, unit::Width,
                     static_cast<short>(pageHeight())};
    WORD menu = 0;
    WORD windowClass = 0;
    WORD title = 0;
    WORD pointSize = 8;
    wchar_t font[13] = L"MS Shell Dlg";
};

DISPID idOf(IDispatch& object, const char* property) {
    std::wstring name = toWide(property);
    LPOLESTR names = name.data();
    DISPID id = DISPID_UNKNOWN;
    check(object.GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &id));
    return id;
}

Variant valueOf(IDispatch& object, const char* property) {
    DISPPARAMS none{};
    Variant value;
    check(object.Invoke(idOf(object, property), IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET, &none,
                        value.get(), nullptr, nullptr));
    return value;
}

void letValue(IDispatch& object, const char* property, Variant value) {
    DISPID put = DISPID_PROPERTYPUT;
    DISPPARAMS parameters{value.get(), &put, 1, 1};
    EXCEPINFO exception{};
    const HRESULT result = object.Invoke(idOf(object, property), IID_NULL, LOCALE_USER_DEFAULT,
                                         DISPATCH_PROPERTYPUT, &parameters, nullptr, &exception, nullptr);
    const std::string described = pixmo::com::textOf(exception.bstrDescription);
    SysFreeString(exception.bstrSource);
    SysFreeString(exception.bstrDescription);
    SysFreeString(exception.bstrHelpFile);
    if (result == DISP_E_EXCEPTION)
        throw Error(static_cast<int32_t>(exception.scode), described);
    check(result);
}

} // namespace

SIZE PropertyPageWindow::size() {
    RECT area{0, 0, unit::Width, pageHeight()};
    const Template dialog;
    const HWND probe =
        CreateDialogIndirectParamW(module::instance(), &dialog.head, GetDesktopWindow(), nullptr, 0);
    MapDialogRect(probe, &area);
    DestroyWindow(probe);
    return {area.right, area.bottom};
}

HWND PropertyPageWindow::create(HWND parent, const RECT& place) {
    const Template dialog;
    window_ = CreateDialogIndirectParamW(module::instance(), &dialog.head, parent, procedure,
                                         reinterpret_cast<LPARAM>(this));
    if (window_)
        MoveWindow(window_, place.left, place.top, place.right - place.left, place.bottom - place.top, FALSE);
    return window_;
}

void PropertyPageWindow::destroy() {
    if (const HWND window = std::exchange(window_, nullptr))
        DestroyWindow(window);
    fields_.clear();
}

INT_PTR CALLBACK PropertyPageWindow::procedure(HWND window, UINT message, WPARAM first, LPARAM second) {
    if (message == WM_INITDIALOG)
        SetWindowLongPtrW(window, DWLP_USER, static_cast<LONG_PTR>(second));
    auto* const self = reinterpret_cast<PropertyPageWindow*>(GetWindowLongPtrW(window, DWLP_USER));
    if (!self)
        return FALSE;
    boundary(IID_IPropertyPage, "PropertyPage", [&] {
        if (message == WM_INITDIALOG) {
            self->window_ = window;
            self->makeFields();
        } else if (message == WM_COMMAND) {
            self->fieldChanged(LOWORD(first), HIWORD(first));
        }
        return S_OK;
    });
    return FALSE;
}

void PropertyPageWindow::makeFields() {
    fields_.assign(propertyFields().size(), {});
    for (size_t row = 0; row < propertyFields().size(); ++row)
        makeRow(row);
}

RECT PropertyPageWindow::place(int left, int top, int width, int height) const {
    RECT area{left, top, left + width, top + height};
    MapDialogRect(window_, &area);
    return area;
}

HWND PropertyPageWindow::child(const wchar_t* kind, const wchar_t* text, DWORD style, const RECT& place,
                               int id) const {
    const HWND made = CreateWindowExW(
        std::wstring_view(kind) == WC_EDITW ? WS_EX_CLIENTEDGE : 0, kind, text, WS_CHILD | WS_VISIBLE | style,
        place.left, place.top, place.right - place.left, place.bottom - place.top, window_,
        reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), module::instance(), nullptr);
    SendMessageW(made, WM_SETFONT, static_cast<WPARAM>(SendMessageW(window_, WM_GETFONT, 0, 0)), FALSE);
    return made;
}

void PropertyPageWindow::makeRow(size_t row) {
    const PropertyField& wanted = propertyFields()[row];
    const std::wstring label = toWide(wanted.label);
    const int at = static_cast<int>(row);
    const int left = unit::Margin + at / rowsInColumn() * unit::ColumnWidth;
    const int top = unit::Margin + at % rowsInColumn() * unit::RowHeight;
    const int fieldLeft = left + unit::LabelWidth;
    const int id = FirstId + at;
    HWND& field = fields_[row].window;
    if (wanted.kind == Kind::Check) {
        field = child(WC_BUTTONW, label.c_str(), WS_TABSTOP | BS_AUTOCHECKBOX,
                      place(fieldLeft, top, unit::FieldWidth, unit::FieldHeight), id);
        return;
    }
    child(WC_STATICW, label.c_str(), SS_LEFT, place(left, top + 2, unit::LabelWidth, unit::TextHeight), -1);
    if (wanted.kind == Kind::List) {
        field = child(WC_COMBOBOXW, L"", WS_TABSTOP | WS_VSCROLL | CBS_DROPDOWNLIST,
                      place(fieldLeft, top, unit::FieldWidth, unit::ListHeight), id);
        for (const PropertyChoice& value : propertyChoices(wanted.property))
            SendMessageW(field, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(toWide(value.text).c_str()));
    } else {
        field = child(WC_EDITW, L"", WS_TABSTOP | ES_AUTOHSCROLL,
                      place(fieldLeft, top, unit::FieldWidth, unit::FieldHeight), id);
    }
}

void PropertyPageWindow::fieldChanged(int id, int notification) {
    const size_t row = static_cast<size_t>(id - FirstId);
    if (filling_ || id < FirstId || row >= fields_.size())
        return;
    static constexpr std::array<int, 3> meansChange{EN_CHANGE, CBN_SELCHANGE, BN_CLICKED};
    if (notification != meansChange[static_cast<size_t>(propertyFields()[row].kind)])
        return;
    fields_[row].dirty = true;
    dirty_ = true;
    changed_();
}

void PropertyPageWindow::show(IDispatch& object) {
    filling_ = true;
    for (size_t row = 0; row < fields_.size(); ++row)
        showValue(row, valueOf(object, propertyFields()[row].property));
    filling_ = false;
    setClean();
}

void PropertyPageWindow::showValue(size_t row, const Variant& value) {
    const HWND field = fields_[row].window;
    Variant shown;
    check(shown.assignFrom(value.get()));
    if (propertyFields()[row].kind == Kind::Check) {
        check(shown.convertTo(VT_BOOL));
        SendMessageW(field, BM_SETCHECK, shown.get()->boolVal ? BST_CHECKED : BST_UNCHECKED, 0);
    } else if (propertyFields()[row].kind == Kind::List) {
        check(shown.convertTo(VT_I4));
        const auto values = propertyChoices(propertyFields()[row].property);
        for (size_t at = 0; at < values.size(); ++at)
            if (values[at].value == shown.get()->lVal)
                SendMessageW(field, CB_SETCURSEL, at, 0);
    } else {
        check(shown.convertTo(VT_BSTR));
        SetWindowTextW(field, std::wstring(Bstr::viewOf(shown.get()->bstrVal)).c_str());
    }
}

std::wstring PropertyPageWindow::textOf(size_t row) const {
    std::wstring text(static_cast<size_t>(GetWindowTextLengthW(fields_[row].window)), L'\0');
    GetWindowTextW(fields_[row].window, text.data(), static_cast<int>(text.size() + 1));
    return text;
}

void PropertyPageWindow::applyTo(IDispatch& object) const {
    for (size_t row = 0; row < fields_.size(); ++row) {
        if (!fields_[row].dirty)
            continue;
        const HWND field = fields_[row].window;
        if (propertyFields()[row].kind == Kind::Check) {
            letValue(object, propertyFields()[row].property,
                     Variant(SendMessageW(field, BM_GETCHECK, 0, 0) == BST_CHECKED));
        } else if (propertyFields()[row].kind == Kind::List) {
            const auto at = static_cast<size_t>(SendMessageW(field, CB_GETCURSEL, 0, 0));
            letValue(object, propertyFields()[row].property,
                     Variant(propertyChoices(propertyFields()[row].property)[at].value));
        } else {
            letValue(object, propertyFields()[row].property, Variant(std::string_view(toUtf8(textOf(row)))));
        }
    }
}

void PropertyPageWindow::setClean() {
    dirty_ = false;
    for (Field& field : fields_)
        field.dirty = false;
}

} // namespace pixmo::com
