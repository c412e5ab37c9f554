#pragma once

#include <string>

namespace pixmo {

/// A request as it travels behind the engine's address and as a reader of the log sees it.
struct RequestAddress {
    std::string target;   ///< ASCII: bytes of the ANSI code page, percent-encoded where RFC 3986 demands it
    std::string readable; ///< the same without encoding
};

RequestAddress requestAddress(const std::string& engineAddress, const std::string& request);

} // namespace pixmo
