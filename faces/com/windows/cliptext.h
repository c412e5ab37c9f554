#pragma once

#include <string>
#include <windows.h>

namespace pixmo::com {

/// Puts a text on the clipboard in the name of that window; nothing happens while another program keeps it.
void copyText(HWND window, const std::wstring& text);

} // namespace pixmo::com
