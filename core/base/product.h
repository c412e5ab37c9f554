#pragma once

#include <cstdint>

/// What the program says of itself: to the server, in the About box, on the command line.
namespace pixmo::product {

inline constexpr const char* Title = "Pixmo";
inline constexpr int32_t Major = 1;
inline constexpr int32_t Minor = 0;
inline constexpr int32_t Revision = 0;

/// Under which the user's settings are kept.
inline constexpr const char* ApplicationName = "QuorvisImaging Pixmo";

} // namespace pixmo::product
