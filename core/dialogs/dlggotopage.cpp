#include "core/dialogs/dlggotopage.h"

#include "core/base/text.h"

#include <algorithm>
#include <limits>

namespace pixmo {

int16_t dlgGotoPage::txtPageNumber_KeyPress(int16_t keyAscii) {
    constexpr int16_t Backspace = 8;
    return (keyAscii >= '0' && keyAscii <= '9') || keyAscii == Backspace ? keyAscii : int16_t{0};
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
