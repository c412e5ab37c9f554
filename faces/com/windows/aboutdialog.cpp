#include "faces/com/windows/aboutdialog.h"

#include "core/base/product.h"
#include "core/dialogs/dlgabout.h"
#include "faces/com/base/widetext.h"
#include "faces/com/windows/cliptext.h"
#include "faces/com/windows/dpi.h"
#include "faces/com/windows/fonts.h"

namespace pixmo::com {

namespace {

constexpr int IconSize = 64; ///< device-independent pixels
constexpr double TitleSize = 1.6;
constexpr short Width = 240;
constexpr short AboutHeight = 92;
constexpr short InformationHeight = 96;
constexpr short TextLeft = 60;
constexpr short TextWidth = Width - TextLeft - 7;

} // namespace

AboutDialog::AboutDialog(const dlgAbout& dialog)
    : ModalDialog(toWide(dialog.Caption()), Width,
                  dialog.isImageInformation() ? InformationHeight : AboutHeight),
      dialog_(dialog) {
    layout().add(L"STATIC", {}, Icon, {7, 8, 44, 42}, SS_ICON | SS_CENTERIMAGE);
    if (dialog.isImageInformation())
        addInformation();
    else
        addAbout();
}

void AboutDialog::addAbout() {
    layout().addLabel(toWide(product::Title), Title, {TextLeft, 8, TextWidth, 16}, SS_NOPREFIX);
    layout().addLabel(toWide(dialog_.lblVersion()), Version, {TextLeft, 26, TextWidth, 10}, SS_NOPREFIX);
    layout().addLabel(toWide(dialog_.lblDescription()), Description, {TextLeft, 42, TextWidth, 28},
                      SS_NOPREFIX);
    layout().addButton(L"OK", IDOK, {Width - 57, AboutHeight - 21, 50, 14}, true);
}

void AboutDialog::addInformation() {
    const short buttons = InformationHeight - 21;
    layout().add(L"EDIT", {}, Information, {TextLeft, 9, TextWidth, buttons - 14},
                 ES_MULTILINE | ES_READONLY | ES_AUTOVSCROLL);
    layout().addButton(L"&Copy", Copy, {Width - 111, buttons, 50, 14});
    layout().addButton(L"OK", IDOK, {Width - 57, buttons, 50, 14}, true);
}

void AboutDialog::onInit() {
    icon_ = makeProgramIcon(scaled(IconSize, dpi()));
    SendMessageW(item(Icon), STM_SETICON, reinterpret_cast<WPARAM>(icon_.get()), 0);
    if (dialog_.isImageInformation()) {
        setText(Information, toWide(dialog_.lblInformation()));
    } else {
        titleFont_ = makeBold(reinterpret_cast<HFONT>(SendMessageW(handle(), WM_GETFONT, 0, 0)), TitleSize);
        setFont(Title, titleFont_.get());
    }
    SetFocus(item(IDOK));
}

bool AboutDialog::onCommand(WORD id, WORD code) {
    if (id != Copy)
        return ModalDialog::onCommand(id, code);
    copyText(handle(), toWide(dialog_.lblInformation()));
    return true;
}

std::optional<INT_PTR> AboutDialog::onMessage(UINT message, WPARAM wParam, LPARAM) {
    // The information is read, not edited: it lies on the window itself.
    if (message != WM_CTLCOLORSTATIC || !dialog_.isImageInformation())
        return std::nullopt;
    SetBkMode(reinterpret_cast<HDC>(wParam), TRANSPARENT);
    SetTextColor(reinterpret_cast<HDC>(wParam), GetSysColor(COLOR_BTNTEXT));
    return reinterpret_cast<INT_PTR>(GetSysColorBrush(COLOR_BTNFACE));
}

} // namespace pixmo::com
