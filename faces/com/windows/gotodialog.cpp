#include "faces/com/windows/gotodialog.h"

#include "core/dialogs/dlggotopage.h"
#include "faces/com/base/widetext.h"

#include <algorithm>
#include <limits>

namespace pixmo::com {

namespace {

constexpr const wchar_t* UsualProcedure = L"Pixmo.UsualProcedure";

} // namespace

GotoDialog::GotoDialog(dlgGotoPage& dialog) : ModalDialog(L"Go to Page", 170, 54), dialog_(dialog) {
    layout().addLabel(toWide(dialog.lblPageNumber()), Label, {7, 10, 86, 10});
    layout().addEdit(Number, {96, 8, 67, 13}, ES_AUTOHSCROLL);
    layout().addButton(L"OK", IDOK, {59, 33, 50, 14}, true);
    layout().addButton(L"Cancel", IDCANCEL, {113, 33, 50, 14});
}

void GotoDialog::onInit() {
    const HWND number = item(Number);
    setText(Number, toWide(dialog_.txtPageNumber()));
    SetPropW(number, UsualProcedure, reinterpret_cast<HANDLE>(GetWindowLongPtrW(number, GWLP_WNDPROC)));
    SetWindowLongPtrW(number, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(numberProcedure));
    SetFocus(number);
}

bool GotoDialog::onCommand(WORD id, WORD code) {
    if (id == Number && code == EN_SETFOCUS)
        PostMessageW(item(Number), EM_SETSEL, 0, -1);
    else if (id == IDOK) {
        dialog_.setTxtPageNumber(toUtf8(text(Number)));
        dialog_.cmdOK_Click();
    }
    return ModalDialog::onCommand(id, code);
}

/// Takes the characters that dlgGotoPage lets through; what is pasted enters as it is.
LRESULT CALLBACK GotoDialog::numberProcedure(HWND handle, UINT message, WPARAM wParam,
                                             LPARAM lParam) noexcept {
    const auto usual = reinterpret_cast<WNDPROC>(GetPropW(handle, UsualProcedure));
    // Ctrl+A to Ctrl+Z arrive as control characters: Ctrl+V must paste.
    if (message == WM_CHAR && wParam >= L' ') {
        constexpr WPARAM Most = std::numeric_limits<int16_t>::max();
        if (dlgGotoPage::txtPageNumber_KeyPress(static_cast<int16_t>(std::min(wParam, Most))) == 0)
            return 0;
    }
    if (message == WM_NCDESTROY)
        RemovePropW(handle, UsualProcedure);
    return CallWindowProcW(usual, handle, message, wParam, lParam);
}

} // namespace pixmo::com
