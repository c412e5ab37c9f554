#pragma once

#include <cstdint>
#include <string>

namespace pixmo::com {

/// What the head of an answer of HTTP says, of what matters to a transfer.
struct ResponseHead {
    std::string phrase;    ///< of the status line
    int64_t bodySize = -1; ///< -1 when it is not told, or told of packed data
};

/// Lines end in CR LF; the first is the status line.
ResponseHead readResponseHead(const std::string& head);

} // namespace pixmo::com
