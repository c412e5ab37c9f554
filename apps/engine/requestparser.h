#pragma once

#include "apps/engine/enginerequest.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace pixmo {

/// Reads the text behind the question mark of the engine's address. Takes any bytes whatever.
class RequestParser {
public:
    /// One character each; the first one is that of initial contacts, all are accepted afterwards.
    explicit RequestParser(std::vector<std::string> delimiters) : delimiters_(std::move(delimiters)) {}

    /// `query` as it stands on the wire: ANSI bytes, percent-encoded or bare. `keys` are tried in their
    /// order.
    EngineRequest parse(std::string_view query, std::span<const std::string> keys) const;

    /// Percent-encoded bytes decoded, all others (a lone or damaged "%" too) as they are.
    static std::string percentDecoded(std::string_view text);

private:
    EngineRequest parseContact(std::string_view text) const;
    EngineRequest parseEnciphered(std::string_view hex, std::span<const std::string> keys) const;

    std::vector<std::string> delimiters_;
};

} // namespace pixmo
