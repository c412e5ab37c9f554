#include "apps/engine/naturalorder.h"

#include "core/base/text.h"

#include <string>

namespace pixmo {

namespace {

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

/// The digits at the start of the text, without leading zeros; takes them off the text.
std::string_view takeNumber(std::string_view& text) {
    size_t length = 0;
    while (length < text.size() && isDigit(text[length]))
        ++length;
    std::string_view number = text.substr(0, length);
    text.remove_prefix(length);
    while (!number.empty() && number.front() == '0')
        number.remove_prefix(1);
    return number;
}

/// Below, at or above zero as the left number is smaller, equal or larger; of any length.
int compareNumbers(std::string_view left, std::string_view right) {
    if (left.size() != right.size())
        return left.size() < right.size() ? -1 : 1;
    return left.compare(right);
}

int compareNaturally(std::string_view left, std::string_view right) {
    while (!left.empty() && !right.empty()) {
        if (isDigit(left.front()) && isDigit(right.front())) {
            if (const int order = compareNumbers(takeNumber(left), takeNumber(right)); order != 0)
                return order;
            continue;
        }
        if (left.front() != right.front())
            return static_cast<unsigned char>(left.front()) < static_cast<unsigned char>(right.front()) ? -1
                                                                                                        : 1;
        left.remove_prefix(1);
        right.remove_prefix(1);
    }
    return static_cast<int>(!left.empty()) - static_cast<int>(!right.empty());
}

} // namespace

bool naturallyBefore(std::string_view left, std::string_view right) {
    const int order = compareNaturally(upperCase(left), upperCase(right));
    return order != 0 ? order < 0 : left < right;
}

} // namespace pixmo
