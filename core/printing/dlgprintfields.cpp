#include "core/printing/dlgprint.h"

namespace pixmo {

namespace {

DialogPart button(const char* text, std::function<void()> clicked) {
    return {.kind = DialogPart::Kind::Button, .text = text, .clicked = std::move(clicked)};
}

} // namespace

DialogDescription dlgPrint::describe() {
    using enum DialogPart::Kind;
    const DialogPart right{.kind = Column, .parts = {sizes(), copies()}};
    const DialogPart more{.kind = Row,
                          .stretches = true,
                          .isVisible = [this] { return moreShown_; },
                          .parts = {range(), right}};
    return {.name = "dlgPrint",
            .title = Caption(),
            .content = {.kind = Column, .parts = {printer(), buttons(), more}}};
}

DialogPart dlgPrint::printer() {
    using enum DialogPart::Kind;
    const DialogPart name{
        .kind = Label, .name = "lblPrinterName", .stretches = true, .isCut = true, .shown = [this] {
            return printerName_;
        }};
    return {.kind = Row, .parts = {{.kind = Label, .text = "Current Printer:"}, name}};
}

DialogPart dlgPrint::buttons() {
    DialogPart print = button("&Print", [this] { cmdPrint_Click(); });
    print.name = "cmdPrint";
    print.isDefault = true;
    DialogPart options = button("", [this] { cmdOptions_Click(); });
    options.name = "cmdOptions";
    options.shown = [this] { return cmdOptionsCaption(); };
    return {.kind = DialogPart::Kind::Row,
            .parts = {print, button("&Cancel", [this] { cmdCancel_Click(); }),
                      button("P&rinters...", [this] { cmdSelectPrinter_Click(); }),
                      button("Pre&view...", [this] { cmdPreview_Click(); }), options}};
}

DialogPart dlgPrint::rangeOption(int16_t range, const char* text) {
    return {.kind = DialogPart::Kind::Option,
            .text = text,
            .isChosen = [this, range] { return printType_ == range; },
            .clicked = [this, range] { optPrintType_Click(range); }};
}

DialogPart dlgPrint::sizeOption(int16_t scale, const char* text) {
    return {.kind = DialogPart::Kind::Option,
            .text = text,
            .isChosen = [this, scale] { return imageScale_ == scale; },
            .clicked = [this, scale] { optImageScale_Click(scale); }};
}

DialogPart dlgPrint::range() {
    using enum DialogPart::Kind;
    constexpr int32_t NumberWidth = 6; // characters
    const DialogPart from{.kind = Text,
                          .name = "txtFromPage",
                          .spoken = "First page",
                          .width = NumberWidth,
                          .stretches = true,
                          .shown = [this] { return fromPage_; },
                          .changed = [this](const std::string& text) { txtFromPage_Change(text); }};
    const DialogPart to{.kind = Text,
                        .name = "txtToPage",
                        .spoken = "Last page",
                        .width = NumberWidth,
                        .stretches = true,
                        .shown = [this] { return toPage_; },
                        .changed = [this](const std::string& text) { txtToPage_Change(text); }};
    return {.kind = Frame,
            .text = "Page Range",
            .stretches = true,
            .parts = {rangeOption(AllPages, "&All Pages"),
                      rangeOption(CurrentPage, "C&urrent Page"),
                      rangeOption(SelectedPages, "&Selected Pages"),
                      {.kind = Row,
                       .parts = {rangeOption(PageRange, "Page"), from, {.kind = Label, .text = "thru"}, to}},
                      pages()}};
}

DialogPart dlgPrint::pages() {
    using enum DialogPart::Kind;
    const DialogPart list{
        .kind = List,
        .name = "lstSelectedPages",
        .text = "Pages to print",
        .stretches = true,
        .entries = pageList_,
        .isSelected = [this](size_t entry) { return isPageSelected(static_cast<int16_t>(entry + 1)); },
        .select =
            [this](size_t entry, bool selected) {
                lstSelectedPages_Click(static_cast<int16_t>(entry + 1), selected);
            }};
    return {.kind = Column,
            .stretches = true,
            .isVisible = [this] { return isPageListVisible(); },
            .parts = {{.kind = Label, .text = "Pages to print"}, list}};
}

DialogPart dlgPrint::sizes() {
    return {.kind = DialogPart::Kind::Frame,
            .text = "Print Size",
            .parts = {sizeOption(FitToPage, "&Fit to Page"), sizeOption(FullSize, "Print Full &Size (100%)"),
                      sizeOption(CurrentView, "Print &Current View Only")}};
}

DialogPart dlgPrint::copies() {
    using enum DialogPart::Kind;
    constexpr int32_t NumberWidth = 9; // characters
    const DialogPart number{.kind = Number,
                            .name = "txtPrntCopies",
                            .spoken = "Copies",
                            .width = NumberWidth,
                            .most = MostCopies,
                            .shown = [this] { return copiesText_; },
                            .changed = [this](const std::string& text) { txtPrntCopies_Change(text); }};
    return {.kind = Frame, .text = "Copies", .parts = {number}};
}

} // namespace pixmo
