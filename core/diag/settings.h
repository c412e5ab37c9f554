#pragma once

/// What is kept for the user from run to run: section, key, and the text read when nothing was kept.
namespace pixmo::setting {

struct Setting {
    const char* section;
    const char* key;
    const char* defaultValue;
};

inline constexpr Setting ButtonCaptions = {"Settings", "ButtonCaptions", "FALSE"};
inline constexpr Setting BigButtons = {"Settings", "BigButtons", "TRUE"};
inline constexpr Setting GrayScale = {"Settings", "GrayScale", "TRUE"};
inline constexpr Setting ShowPrintDebugInfo = {"Settings", "ShowPrintDebugInfo", "FALSE"};
inline constexpr Setting SavePageFolder = {"SavePage", "Folder", ""};
inline constexpr Setting SavePageFormat = {"SavePage", "Format", "tif"};
/// The size of the log's window, in device-independent pixels.
inline constexpr Setting LogWidth = {"dlgLog", "Form.Width", "760"};
inline constexpr Setting LogHeight = {"dlgLog", "Form.Height", "480"};
inline constexpr Setting PrintShowMore = {"dlgPrint", "ShowMore", "False"};

/// The section's trailing point is part of its name.
inline constexpr const char* ThumbnailSection = "dlgThumbs.";

} // namespace pixmo::setting
