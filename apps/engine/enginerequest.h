#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace pixmo {

enum class RequestKind { InitialContact, PageCount, GetPage, Unknown };

/// As it stands in the request; "??" for an unknown one.
constexpr std::string_view requestCode(RequestKind kind) {
    switch (kind) {
    case RequestKind::InitialContact:
        return "IC";
    case RequestKind::PageCount:
        return "PC";
    case RequestKind::GetPage:
        return "GP";
    case RequestKind::Unknown:
        break;
    }
    return "??";
}

enum class RequestProblem {
    None,
    Malformed, ///< its fields are not those of its kind
    NoKey,     ///< no key known here deciphers it
};

/// What a viewer asks. Texts are UTF-8.
struct EngineRequest {
    RequestKind kind = RequestKind::Unknown;
    RequestProblem problem = RequestProblem::Malformed;
    std::string delimiter; ///< the one that the request uses, and so its answer
    std::string key;       ///< the one that deciphers it; "" when there is none
    std::string user;
    std::string machine;
    std::string product; ///< "IC": title and version, for the log
    int32_t document = 0;
    int16_t page = 0;
};

} // namespace pixmo
