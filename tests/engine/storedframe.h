#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace pixmo {

/// A TIFF file of the folder `pictures`: little.tif, big.tif and bigtiff.tif have the same eight frames of
/// different codings in either order of bytes, other.tif is another file of four, scan.tif has three and
/// single.tif one.
std::filesystem::path storedPicture(const std::string& name);

/// What a frame is made of, read back from a file.
struct StoredFrame {
    std::vector<std::vector<uint8_t>> pieces; ///< raw strips or tiles
    std::vector<uint32_t> pixels;             ///< decoded, RGBA
    std::string description;                  ///< tags that matter to a viewer, as text

    bool operator==(const StoredFrame&) const = default;
};

StoredFrame readFrame(const std::filesystem::path& file, unsigned index);

} // namespace pixmo
