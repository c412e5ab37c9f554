#pragma once

#include <cstdint>
#include <filesystem>
#include <span>
#include <vector>

namespace pixmo {

/// Asked by the file's length, which opens nothing; any error means absence.
bool fileExists(const std::filesystem::path& path);

/// The whole file. Throws file not found (53) or path/file access (75).
std::vector<uint8_t> readFile(const std::filesystem::path& path);

/// Replaces the file. Throws path/file access (75), or disk full (61) when not all could be written.
void writeFile(const std::filesystem::path& path, std::span<const uint8_t> bytes);

} // namespace pixmo
