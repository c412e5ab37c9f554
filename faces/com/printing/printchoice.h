#pragma once

#include "faces/com/printing/devicemode.h"

#include <optional>
#include <string>
#include <windows.h>

namespace pixmo::com {

/// What the user has chosen in the system's print dialog.
struct PrintChoice {
    std::wstring printer;
    DeviceMode mode;
};

/// Shows the dialog with that printer, as it is set; none when the user thinks better of it. The flags are
/// the dialog's own.
std::optional<PrintChoice> askForPrinter(HWND owner, const std::wstring& printer, const DeviceMode& mode,
                                         DWORD flags);

} // namespace pixmo::com
