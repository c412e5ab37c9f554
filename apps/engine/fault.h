#pragma once

#include "apps/engine/enginerequest.h"

#include <cstdint>
#include <optional>
#include <string_view>

namespace pixmo {

enum class FaultKind {
    Stall,     ///< no answer until the client leaves
    Delay,     ///< `value` milliseconds before the answer
    Drip,      ///< `value` bytes of the body a second
    Reset,     ///< the connection is torn down (RST) half-way through the body
    Close,     ///< the connection ends in good order (FIN) half-way through the body
    Empty,     ///< no body
    Http,      ///< status `value`
    ErrText,   ///< a plain text of about 1 KB that begins with "Error"
    Er,        ///< an error answer
    WrongKey,  ///< a text answer under another key; an error answer in place of a page
    Garbage,   ///< 8 KB of random bytes, `value` being their seed
    Truncated, ///< the first half of the page file or text, complete as far as HTTP can tell
    Redirect,  ///< to the same address
    Html,      ///< a web page of 4 KB
};

/// Something that goes wrong on purpose.
struct Fault {
    FaultKind kind = FaultKind::Stall;
    std::optional<RequestKind> request; ///< every request when not given
    int32_t value = 0;                  ///< as the kind says
    std::optional<uint32_t> first;      ///< only so many requests, the first ones

    bool operator==(const Fault&) const = default;

    bool concerns(RequestKind asked) const { return !request || *request == asked; }
};

/// Its name in a fault's text.
std::string_view faultName(FaultKind kind);

/// "KIND:REQUEST[=VALUE][@N]" with REQUEST one of IC, PC, GP and ALL. Throws std::invalid_argument with a
/// readable reason.
Fault parseFault(std::string_view text);

} // namespace pixmo
