#pragma once

#include <string>
#include <windows.h>

namespace pixmo::viewer {

/// Writes what the window shows as a bitmap file (24 bits per pixel). False when that fails.
bool saveScreenshot(HWND window, const std::wstring& file);

} // namespace pixmo::viewer
