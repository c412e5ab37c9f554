#include "tests/com/control/hosting/modalwatcher.h"

#include "faces/com/base/widetext.h"

namespace pixmo::com::test {

namespace {

constexpr UINT Interval = 50; ///< milliseconds

std::function<void(HWND)> action;

BOOL CALLBACK look(HWND window, LPARAM) {
    wchar_t kind[16] = {};
    GetClassNameW(window, kind, 16);
    if (lstrcmpW(kind, L"#32770") == 0 && IsWindowVisible(window))
        action(window);
    return TRUE;
}

} // namespace

ModalWatcher::ModalWatcher(std::function<void(HWND)> act) {
    action = std::move(act);
    timer_ = SetTimer(nullptr, 0, Interval, tick);
}

ModalWatcher::~ModalWatcher() {
    KillTimer(nullptr, timer_);
    action = nullptr;
}

void CALLBACK ModalWatcher::tick(HWND, UINT, UINT_PTR, DWORD) {
    EnumThreadWindows(GetCurrentThreadId(), look, 0);
}

void ModalWatcher::giveUp(HWND dialog) {
    for (const int button : {IDCANCEL, IDABORT, IDNO, IDOK})
        if (GetDlgItem(dialog, button)) {
            PostMessageW(dialog, WM_COMMAND, static_cast<WPARAM>(button), 0);
            return;
        }
}

std::string ModalWatcher::textOf(HWND dialog) {
    std::string text;
    for (HWND part = nullptr; (part = FindWindowExW(dialog, part, L"Static", nullptr)) != nullptr;) {
        wchar_t line[512] = {};
        GetWindowTextW(part, line, 512);
        text += toUtf8(line);
    }
    return text;
}

} // namespace pixmo::com::test
