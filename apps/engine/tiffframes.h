#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <vector>

namespace pixmo {

/// Pictures in a TIFF file; 0 when it is none or is damaged at its start.
size_t countTiffFrames(const std::filesystem::path& file);

/// One picture (from 0) as a TIFF file of its own: the strips or tiles as they are stored, and the tags that
/// their decoding and display need. Nothing when there is no such picture, when its data is damaged, or when
/// it is in the old form of JPEG, whose data cannot be moved.
std::optional<std::vector<uint8_t>> extractTiffFrame(const std::filesystem::path& file, size_t index);

} // namespace pixmo
