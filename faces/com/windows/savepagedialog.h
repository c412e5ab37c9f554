#pragma once

#include "core/dialogs/dlgsavepage.h"

#include <filesystem>
#include <optional>
#include <windows.h>

namespace pixmo::com {

/// The system's own window for dlgSavePage; none when the user cancelled.
std::optional<std::filesystem::path> askSavePage(dlgSavePage& dialog, HWND owner);

} // namespace pixmo::com
