#include "core/windows/dlggotopage.h"

#include "core/base/text.h"

#include <algorithm>
#include <limits>

namespace pixmo {

DialogDescription dlgGotoPage::describe() {
    using enum DialogPart::Kind;
    const DialogPart label{.kind = Label, .name = "lblPageNumber", .text = lblPageNumber()};
    const DialogPart number{.kind = Text,
                            .name = "txtPageNumber",
                            .width = 16,
                            .stretches = true,
                            .selectsAll = true,
                            .shown = [this] { return text_; },
                            .changed = [this](const std::string& text) { setTxtPageNumber(text); },
                            .keyPress = txtPageNumber_KeyPress};
    const DialogPart ok{.kind = Button,
                        .text = "OK",
                        .isDefault = true,
                        .meaning = DialogPart::Meaning::Ok,
                        .clicked = [this] { cmdOK_Click(); }};
    const DialogPart cancel{.kind = Button,
                            .text = "Cancel",
                            .meaning = DialogPart::Meaning::Cancel,
                            .clicked = [this] { cmdCancel_Click(); }};
    return {.name = "dlgGotoPage",
            .title = "Go to Page",
            .content = {.kind = Column,
                        .parts = {{.kind = Row, .parts = {label, number}},
                                  {.kind = Buttons, .parts = {ok, cancel}}}}};
}

int16_t dlgGotoPage::txtPageNumber_KeyPress(int16_t keyAscii) {
    constexpr int16_t Backspace = 8;
    return (keyAscii >= '0' && keyAscii <= '9') || keyAscii == Backspace ? keyAscii : int16_t{0};
}

void dlgGotoPage::cmdCancel_Click() {
    text_ = "0";
    close();
}

std::string dlgGotoPage::lblPageNumber() const {
    return pageCount_ > 0 ? "&Page (1 to " + std::to_string(pageCount_) + "):" : "&Page:";
}

int16_t dlgGotoPage::PageNumber() {
    constexpr double Smallest = std::numeric_limits<int16_t>::min();
    const double value = std::clamp<double>(leadingNumber(text_), Smallest, LargestPage);
    const int16_t page = roundToInteger(value);
    text_ = std::to_string(page);
    return page;
}

} // namespace pixmo
