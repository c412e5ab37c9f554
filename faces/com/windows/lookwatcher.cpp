#include "faces/com/windows/lookwatcher.h"

#include <utility>

namespace pixmo::com {

std::shared_ptr<LookWatcher> LookWatcher::create(Changed changed) {
    auto watcher = std::make_shared<LookWatcher>();
    watcher->changed_ = std::move(changed);
    return watcher->make({L"Pixmo.LookWatcher"}, {nullptr, WS_POPUP, WS_EX_TOOLWINDOW}) ? watcher : nullptr;
}

std::optional<LRESULT> LookWatcher::onMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_SYSCOLORCHANGE:
    case WM_SETTINGCHANGE:
    case WM_THEMECHANGED:
        changed_(message, wParam, lParam);
        return 0;
    default:
        return std::nullopt;
    }
}

void tellControls(HWND parent, UINT message, WPARAM wParam, LPARAM lParam) {
    for (HWND child = GetWindow(parent, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT))
        SendMessageW(child, message, wParam, lParam);
}

} // namespace pixmo::com
