#pragma once

#include <string_view>

namespace pixmo {

/// Whether a name comes before another one as people number pages: "page2" before "page10", letter case
/// ignored. A strict order: names that differ only in case or in leading zeros are told apart by their bytes.
bool naturallyBefore(std::string_view left, std::string_view right);

} // namespace pixmo
