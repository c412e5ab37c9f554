#pragma once

#include "faces/com/base/window.h"

#include <functional>
#include <memory>

namespace pixmo::com {

/// Hears of the system's new colours, fonts and styles. The system tells them to the programs' own windows,
/// and not every program hands them on to the windows inside of its own; this one is never seen.
class LookWatcher : public Window {
public:
    using Changed = std::function<void(UINT message, WPARAM wParam, LPARAM lParam)>;

    static std::shared_ptr<LookWatcher> create(Changed changed);

protected:
    std::optional<LRESULT> onMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    Changed changed_;
};

/// Hands such a message on to the controls inside of a window, which keep the system's colours for
/// themselves.
void tellControls(HWND parent, UINT message, WPARAM wParam, LPARAM lParam);

} // namespace pixmo::com
