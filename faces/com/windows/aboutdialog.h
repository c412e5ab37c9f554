#pragma once

#include "faces/com/windows/gdi.h"
#include "faces/com/windows/modaldialog.h"
#include "faces/com/windows/programicon.h"

namespace pixmo {
class dlgAbout;
}

namespace pixmo::com {

/// The window of dlgAbout: the About box, or the information about the page.
class AboutDialog : public ModalDialog {
public:
    /// Of its controls.
    enum Id : WORD { Icon = 100, Title, Version, Description, Information, Copy };

    /// The object outlives the window.
    explicit AboutDialog(const dlgAbout& dialog);

protected:
    void onInit() override;
    bool onCommand(WORD id, WORD code) override;
    std::optional<INT_PTR> onMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    void addAbout();
    void addInformation();

    const dlgAbout& dialog_;
    IconHandle icon_;
    FontHandle titleFont_;
};

} // namespace pixmo::com
