#pragma once

#include <cstdint>
#include <string_view>

namespace pixmo {

/// A failure that the engine reports to a viewer.
struct EngineError {
    int32_t number;
    std::string_view text;
};

/// First text of every error answer: who reports it.
inline constexpr std::string_view EngineName = "Engine";

namespace engine_error {
inline constexpr EngineError BadRequest{2040, "The request cannot be understood."};
inline constexpr EngineError NoContact{2041, "The request is enciphered with an unknown key."};
inline constexpr EngineError NoDocument{2042, "Document not found."};
inline constexpr EngineError NoPage{2043, "The document has no such page."};
inline constexpr EngineError UnreadablePage{2044, "The page cannot be read."};
inline constexpr EngineError Injected{2050, "The engine was told to fail."};
} // namespace engine_error

} // namespace pixmo
