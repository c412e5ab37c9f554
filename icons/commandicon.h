#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace pixmo {

/// The icon of a command, by the command's key: how much of each pixel it covers, 0 to 255, in `size` rows
/// of `size` bytes, top to bottom. Empty for a key without an icon or a size below 1.
std::vector<uint8_t> commandIcon(std::string_view key, int32_t size);

bool hasCommandIcon(std::string_view key);

/// Whether the icon points along the pages: where they follow one another from right to left, it is turned
/// round.
bool isIconDirectional(std::string_view key);

} // namespace pixmo
