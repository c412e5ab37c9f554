#include "core/control/requestaddress.h"

#include "core/base/ansi.h"

#include <string_view>

namespace pixmo {

namespace {

/// What may stand in the query of an address as it is: unreserved characters, and those reserved ones that
/// have no meaning of their own there.
bool travelsBare(unsigned char byte) {
    const bool alphanumeric =
        (byte >= '0' && byte <= '9') || (byte >= 'A' && byte <= 'Z') || (byte >= 'a' && byte <= 'z');
    return alphanumeric ||
           std::string_view("-._~!$'()*,;:@/?").find(static_cast<char>(byte)) != std::string_view::npos;
}

std::string percentEncoded(std::string_view bytes) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string encoded;
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        if (travelsBare(byte)) {
            encoded.push_back(c);
        } else {
            encoded.push_back('%');
            encoded.push_back(digits[byte >> 4U]);
            encoded.push_back(digits[byte & 0xFU]);
        }
    }
    return encoded;
}

} // namespace

RequestAddress requestAddress(const std::string& engineAddress, const std::string& request) {
    return {engineAddress + "?" + percentEncoded(toAnsi(request)), engineAddress + "?" + request};
}

} // namespace pixmo
