#pragma once

#include "core/base/menu.h"
#include "core/control/commands.h"

#include <vector>

namespace pixmo {

/// The toolbar's menu `mnuPopup1` and the menu of the image. What is forbidden is not there, nor are
/// separators with nothing to separate.
std::vector<MenuItem> toolbarMenu(const Commands& commands);
std::vector<MenuItem> imageMenu(const Commands& commands);

} // namespace pixmo
