#pragma once

#include "faces/com/windows/modaldialog.h"

namespace pixmo {
class dlgGotoPage;
}

namespace pixmo::com {

/// The window of dlgGotoPage.
class GotoDialog : public ModalDialog {
public:
    /// Of its controls.
    enum Id : WORD { Label = 100, Number };

    /// The object outlives the window.
    explicit GotoDialog(dlgGotoPage& dialog);

protected:
    void onInit() override;
    bool onCommand(WORD id, WORD code) override;

private:
    static LRESULT CALLBACK numberProcedure(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) noexcept;

    dlgGotoPage& dialog_;
};

} // namespace pixmo::com
