#pragma once

/// What assistive programs are told of those parts of the viewer that show no text of their own.
namespace pixmo::part_name {

inline constexpr const char* Page = "Page";
inline constexpr const char* PageCommands = "Page commands";
inline constexpr const char* Trace = "Debugging trace";
inline constexpr const char* Status = "Status";
inline constexpr const char* Progress = "Progress of the transfer";
inline constexpr const char* Zoom = "Zoom";
inline constexpr const char* Thumbnails = "Thumbnails";
inline constexpr const char* ThumbnailCommands = "Thumbnail commands";

} // namespace pixmo::part_name
