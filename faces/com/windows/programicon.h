#pragma once

#include <memory>
#include <type_traits>
#include <windows.h>

namespace pixmo::com {

struct IconDeleter {
    void operator()(HICON icon) const { DestroyIcon(icon); }
};
using IconHandle = std::unique_ptr<std::remove_pointer_t<HICON>, IconDeleter>;

/// The program's icon, so many device pixels wide and high.
IconHandle makeProgramIcon(int size);

/// The program's icon in the title bar and in the system's list of windows.
class WindowIcons {
public:
    /// The icons live as long as the window.
    void giveTo(HWND window);

private:
    IconHandle small_;
    IconHandle large_;
};

} // namespace pixmo::com
