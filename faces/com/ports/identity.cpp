#include "faces/com/ports/identity.h"

#include "faces/com/base/widetext.h"

#include <array>
#include <lmcons.h>

namespace pixmo::com {

namespace {

template <size_t Size, typename Ask>
std::string nameBy(Ask ask) {
    std::array<wchar_t, Size> name{};
    DWORD size = Size;
    return ask(name.data(), &size) ? toUtf8(name.data()) : std::string();
}

} // namespace

std::string Identity::userName() const {
    return nameBy<UNLEN + 1>(GetUserNameW);
}

std::string Identity::computerName() const {
    return nameBy<MAX_COMPUTERNAME_LENGTH + 1>(GetComputerNameW);
}

} // namespace pixmo::com
