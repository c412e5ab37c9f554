#include "faces/com/face/dialogcloser.h"

#include <array>
#include <string_view>

namespace pixmo::com {

namespace {

/// Such a window cannot be told to close by its own means, but it is a dialog of the system's class.
BOOL CALLBACK closeDialog(HWND window, LPARAM owner) noexcept {
    std::array<wchar_t, 8> name{};
    GetClassNameW(window, name.data(), static_cast<int>(name.size()));
    if (std::wstring_view(name.data()) == L"#32770" &&
        GetWindow(window, GW_OWNER) == reinterpret_cast<HWND>(owner))
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
