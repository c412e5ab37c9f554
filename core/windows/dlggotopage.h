#pragma once

#include "core/platform/dialog.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace pixmo {

/// Asks for a page number.
class dlgGotoPage : public Dialog {
public:
    static constexpr int16_t LargestPage = 32000;

    dlgGotoPage() { setFocus("txtPageNumber"); }

    DialogDescription describe() override;
    void cancel() override { cmdCancel_Click(); }

    const std::string& txtPageNumber() const { return text_; }
    void setTxtPageNumber(std::string_view text) { text_ = text; }
    /// The typed character as it enters the box: itself for a digit and for backspace (8), else 0.
    static int16_t txtPageNumber_KeyPress(int16_t keyAscii);

    void cmdOK_Click() { close(); }
    void cmdCancel_Click();

    /// What stands before the box. It names no last page that is not known.
    std::string lblPageNumber() const;
    /// 0: not known. Only told to the user, who may ask for any page.
    void setPageCount(int16_t count) { pageCount_ = count; }

    void setPageNumber(int16_t page) { text_ = std::to_string(page); }
    /// 0 means cancelled; at most LargestPage. Puts the box's text in order.
    int16_t PageNumber();

private:
    std::string text_;
    int16_t pageCount_ = 0;
};

} // namespace pixmo
