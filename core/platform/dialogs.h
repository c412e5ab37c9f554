#pragma once

#include <filesystem>
#include <optional>

namespace pixmo {

class Dialog;
class dlgSavePage;

/// Port: shows the windows that the core describes, and the system's own.
class Dialogs {
public:
    virtual ~Dialogs() = default;

    /// Returns when the window is closed; other events of the thread may be handled meanwhile. A window that
    /// cannot be shown, or whose face ends, is cancelled.
    virtual void showModal(Dialog& dialog) = 0;
    /// The system's window that asks where to save; none when the user cancelled.
    virtual std::optional<std::filesystem::path> askSavePath(dlgSavePage& dialog) = 0;
};

} // namespace pixmo
