#include "faces/com/printing/printdialog.h"

#include "faces/com/base/widetext.h"

#include <array>
#include <commctrl.h>
#include <utility>

namespace pixmo::com {

namespace {

enum Id : WORD {
    CmdPrint = IDOK,
    CmdCancel = IDCANCEL,
    LblPrinterName = 100,
    CmdSelectPrinter,
    CmdPreview,
    CmdOptions,
    // From here on the further options.
    FrameRange = 110,
    OptPrintType, ///< and behind it one for each PrintRange
    TxtFromPage = 120,
    LblThru,
    TxtToPage,
    LblSelectedPages,
    LstSelectedPages,
    FrameSize = 130,
    OptImageScale, ///< and behind it one for each PrintScale
    FrameCopies = 140,
    TxtPrntCopies,
    HscPrntCopies,
    LastOption
};

constexpr WORD rangeOption(PrintRange range) {
    return static_cast<WORD>(OptPrintType + int{range});
}

constexpr WORD sizeOption(PrintScale scale) {
    return static_cast<WORD>(OptImageScale + int{scale});
}

constexpr int RangeOptions = 4;
constexpr int SizeOptions = 3;

constexpr short Width = 260;
constexpr short FullHeight = 202;
constexpr short OptionsHeight = 158; ///< of what "Less Options" takes away

constexpr DWORD OptionStyle = BS_AUTORADIOBUTTON;

} // namespace

PrintDialog::PrintDialog(dlgPrint& state)
    : ModalDialog(toWide(dlgPrint::Caption()), Width, FullHeight), state_(state),
      connection_(state.Changed.connect([this] { mirror(); })) {
    layout().addLabel(L"Current Printer:", 0, {7, 8, 58, 8});
    layout().addLabel({}, LblPrinterName, {67, 8, 186, 8}, SS_NOPREFIX | SS_ENDELLIPSIS);
    addButtons();
    addRange();
    addSize();
    addCopies();
}

PrintDialog::~PrintDialog() {
    state_.Changed.disconnect(connection_);
}

void PrintDialog::addButtons() {
    layout().addButton(L"&Print", CmdPrint, {7, 22, 44, 14}, true);
    layout().addButton(L"&Cancel", CmdCancel, {55, 22, 44, 14});
    layout().addButton(L"P&rinters...", CmdSelectPrinter, {103, 22, 44, 14});
    layout().addButton(L"Pre&view...", CmdPreview, {151, 22, 44, 14});
    layout().addButton(L"More Options", CmdOptions, {199, 22, 54, 14});
}

/// What lies in a frame, and between, is painted by the window beneath.
void PrintDialog::addFrame(const wchar_t* caption, WORD id, const DialogTemplate::Place& place) {
    layout().add(L"BUTTON", caption, id, place, BS_GROUPBOX | WS_GROUP, WS_EX_TRANSPARENT);
}

void PrintDialog::addRange() {
    addFrame(L"Page Range", FrameRange, {7, 42, 120, 153});
    layout().add(L"BUTTON", L"&All Pages", rangeOption(AllPages), {15, 54, 104, 10},
                 OptionStyle | WS_GROUP | WS_TABSTOP);
    layout().add(L"BUTTON", L"C&urrent Page", rangeOption(CurrentPage), {15, 67, 104, 10}, OptionStyle);
    layout().add(L"BUTTON", L"&Selected Pages", rangeOption(SelectedPages), {15, 80, 104, 10}, OptionStyle);
    layout().add(L"BUTTON", L"Page", rangeOption(PageRange), {15, 94, 30, 10}, OptionStyle);
    layout().addEdit(TxtFromPage, {47, 92, 26, 13}, ES_AUTOHSCROLL | WS_GROUP);
    layout().addLabel(L"thru", LblThru, {76, 94, 16, 8});
    layout().addEdit(TxtToPage, {93, 92, 26, 13}, ES_AUTOHSCROLL);
    layout().addLabel(L"Pages to print", LblSelectedPages, {15, 110, 104, 8});
    layout().add(L"LISTBOX", L"Pages to print", LstSelectedPages, {15, 120, 104, 70},
                 WS_TABSTOP | WS_VSCROLL | LBS_NOTIFY | LBS_EXTENDEDSEL | LBS_NOINTEGRALHEIGHT,
                 WS_EX_CLIENTEDGE);
}

void PrintDialog::addSize() {
    addFrame(L"Print Size", FrameSize, {133, 42, 120, 54});
    layout().add(L"BUTTON", L"&Fit to Page", sizeOption(FitToPage), {141, 54, 108, 10},
                 OptionStyle | WS_GROUP | WS_TABSTOP);
    layout().add(L"BUTTON", L"Print Full &Size (100%)", sizeOption(FullSize), {141, 67, 108, 10},
                 OptionStyle);
    layout().add(L"BUTTON", L"Print &Current View Only", sizeOption(CurrentView), {141, 80, 108, 10},
                 OptionStyle);
}

void PrintDialog::addCopies() {
    addFrame(L"Copies", FrameCopies, {133, 100, 120, 32});
    layout().addEdit(TxtPrntCopies, {141, 112, 44, 13}, ES_AUTOHSCROLL | ES_NUMBER | WS_GROUP);
    layout().add(UPDOWN_CLASSW, {}, HscPrntCopies, {185, 112, 10, 13},
                 UDS_SETBUDDYINT | UDS_AUTOBUDDY | UDS_ALIGNRIGHT | UDS_ARROWKEYS | UDS_NOTHOUSANDS);
}

void PrintDialog::onInit() {
    RECT place{};
    GetWindowRect(handle(), &place);
    fullHeight_ = place.bottom - place.top;
    SendMessageW(item(HscPrntCopies), UDM_SETRANGE32, 1, dlgPrint::MostCopies);
    mirroring_ = true;
    setText(TxtFromPage, toWide(state_.txtFromPage()));
    setText(TxtToPage, toWide(state_.txtToPage()));
    mirroring_ = false;
    fillList();
    mirror();
    SetFocus(item(CmdPrint));
}

void PrintDialog::fillList() const {
    const HWND list = item(LstSelectedPages);
    SendMessageW(list, WM_SETREDRAW, FALSE, 0);
    int16_t page = 0;
    for (const std::string& entry : state_.lstSelectedPages()) {
        SendMessageW(list, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(toWide(entry).c_str()));
        if (state_.isPageSelected(static_cast<int16_t>(page + 1)))
            SendMessageW(list, LB_SETSEL, TRUE, page);
        ++page;
    }
    SendMessageW(list, WM_SETREDRAW, TRUE, 0);
}

void PrintDialog::onClose() {
    if (state_.isOpen())
        state_.cmdCancel_Click();
}

bool PrintDialog::onCommand(WORD id, WORD code) {
    if (mirroring_)
        return true;
    if (code == EN_CHANGE && (id == TxtFromPage || id == TxtToPage || id == TxtPrntCopies))
        onTyped(id);
    else if (code == LBN_SELCHANGE && id == LstSelectedPages)
        onListChanged();
    else if (code == BN_CLICKED)
        return onButton(id);
    else
        return false;
    return true;
}

bool PrintDialog::onButton(WORD id) {
    if (id >= OptPrintType && id < OptPrintType + RangeOptions)
        state_.optPrintType_Click(static_cast<int16_t>(id - OptPrintType));
    else if (id >= OptImageScale && id < OptImageScale + SizeOptions)
        state_.optImageScale_Click(static_cast<int16_t>(id - OptImageScale));
    else if (id == CmdPrint)
        state_.cmdPrint_Click();
    else if (id == CmdCancel)
        state_.cmdCancel_Click();
    else if (id == CmdSelectPrinter)
        state_.cmdSelectPrinter_Click();
    else if (id == CmdPreview)
        state_.cmdPreview_Click();
    else if (id == CmdOptions)
        state_.cmdOptions_Click();
    else
        return false;
    return true;
}

void PrintDialog::onListChanged() {
    const auto count = static_cast<int16_t>(state_.lstSelectedPages().size());
    for (int16_t row = 0; row < count; ++row) {
        const bool selected =
            SendMessageW(item(LstSelectedPages), LB_GETSEL, static_cast<WPARAM>(row), 0) > 0;
        const auto page = static_cast<int16_t>(row + 1);
        if (selected != state_.isPageSelected(page))
            state_.lstSelectedPages_Click(page, selected);
    }
}

void PrintDialog::onTyped(WORD id) {
    const std::string typed = toUtf8(text(id));
    if (id == TxtFromPage)
        state_.txtFromPage_Change(typed);
    else if (id == TxtToPage)
        state_.txtToPage_Change(typed);
    else
        state_.txtPrntCopies_Change(typed);
}

void PrintDialog::mirror() {
    if (!handle())
        return;
    if (!state_.isOpen()) {
        close(state_.Cancelled() ? IDCANCEL : IDOK);
        return;
    }
    const bool before = std::exchange(mirroring_, true);
    mirrorOptions();
    setText(LblPrinterName, toWide(state_.lblPrinterName()));
    setText(CmdOptions, toWide(state_.cmdOptionsCaption()));
    if (text(TxtPrntCopies) != toWide(state_.txtPrntCopies()))
        setText(TxtPrntCopies, toWide(state_.txtPrntCopies()));
    showMore(state_.isMoreShown());
    mirroring_ = before;
}

void PrintDialog::mirrorOptions() const {
    const auto check = [this](int first, int count, int chosen) {
        for (int index = 0; index < count; ++index)
            SendMessageW(item(static_cast<WORD>(first + index)), BM_SETCHECK,
                         index == chosen ? BST_CHECKED : BST_UNCHECKED, 0);
    };
    check(OptPrintType, RangeOptions, state_.optPrintType());
    check(OptImageScale, SizeOptions, state_.optImageScale());
}

void PrintDialog::showMore(bool shown) {
    for (WORD id = FrameRange; id < LastOption; ++id) {
        const bool ofList = id == LblSelectedPages || id == LstSelectedPages;
        if (const HWND control = item(id))
            ShowWindow(control, shown && (!ofList || state_.isPageListVisible()) ? SW_SHOW : SW_HIDE);
    }
    RECT place{};
    GetWindowRect(handle(), &place);
    const LONG options = pixels({0, 0, 0, OptionsHeight}).bottom;
    const LONG height = fullHeight_ - (shown ? 0 : options);
    if (height != place.bottom - place.top)
        SetWindowPos(handle(), nullptr, 0, 0, place.right - place.left, height,
                     SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

} // namespace pixmo::com
