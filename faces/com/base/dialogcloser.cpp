#include "faces/com/base/dialogcloser.h"

#include <array>
#include <string_view>

namespace pixmo::com {

namespace {

/// Directly, or over another window of its own; without an owner: over none.
bool standsOver(HWND window, HWND owner) {
    HWND below = GetWindow(window, GW_OWNER);
    while (owner && below && below != owner)
        below = GetWindow(below, GW_OWNER);
    return below == owner;
}

/// Such a window cannot be told to close by means of its own, but it is a dialog of the system's class.
BOOL CALLBACK closeDialog(HWND window, LPARAM owner) noexcept {
    std::array<wchar_t, 8> name{};
    GetClassNameW(window, name.data(), static_cast<int>(name.size()));
    if (std::wstring_view(name.data()) != L"#32770" || !standsOver(window, reinterpret_cast<HWND>(owner)))
        return TRUE;
    if (GetDlgItem(window, IDCANCEL))
        PostMessageW(window, WM_COMMAND, IDCANCEL, 0);
    else
        EndDialog(window, 0);
    return TRUE;
}

} // namespace

DialogCloser::DialogCloser(FaceLink& link)
    : link_(link), owner_(link.owner()), connection_(link.Ending.connect([owner = owner_] {
          EnumThreadWindows(GetCurrentThreadId(), closeDialog, reinterpret_cast<LPARAM>(owner));
      })) {}

DialogCloser::~DialogCloser() {
    link_.Ending.disconnect(connection_);
}

} // namespace pixmo::com
