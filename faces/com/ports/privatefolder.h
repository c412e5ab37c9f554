#pragma once

#include <string>

namespace pixmo::com {

/// Makes a folder that only this user, and nobody by inheritance, can enter. False when the system refuses or
/// when it is there already.
bool makePrivateFolder(const std::wstring& path);

} // namespace pixmo::com
