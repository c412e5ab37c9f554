#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace pixmo {

class dlgAbout;
class dlgGotoPage;
class dlgLog;

/// Port: shows the windows whose state the core holds. The modal ones return when the window is closed and
/// may run other events of the thread meanwhile.
class Dialogs {
public:
    virtual ~Dialogs() = default;

    virtual void showModal(dlgGotoPage& dialog) = 0;
    virtual void showModal(dlgAbout& dialog) = 0;
    virtual void showModal(dlgLog& dialog) = 0;
    /// Where to save a page, under which name; none when the user cancelled. The ending tells the format:
    /// ".png", else TIFF.
    virtual std::optional<std::filesystem::path> askSavePath(const std::string& suggestedName) = 0;
};

} // namespace pixmo
