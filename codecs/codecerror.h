#pragma once

#include "core/base/error.h"

#include <string>

namespace pixmo {

/// Invalid picture (481) with a text that says what is wrong with it.
Error pictureError(std::string description);

} // namespace pixmo
