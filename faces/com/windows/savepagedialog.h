#pragma once

#include "core/windows/dlgsavepage.h"
#include "faces/com/base/facelink.h"

#include <filesystem>
#include <optional>

namespace pixmo::com {

/// The system's own window for dlgSavePage; none when the user cancelled, or the face ended meanwhile.
std::optional<std::filesystem::path> askSavePage(dlgSavePage& dialog, FaceLink& link);

} // namespace pixmo::com
