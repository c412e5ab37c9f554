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

/// What a viewer has of a frame.
struct StoredFrame {
    uint32_t width = 0;
    uint32_t height = 0;
    float xResolution = 0;
    float yResolution = 0;
    uint16_t compression = 0;
    uint16_t bitsPerSample = 0;
    std::vector<uint32_t> pixels; ///< RGBA, as the orientation says

    bool operator==(const StoredFrame&) const = default;
};

StoredFrame readFrame(const std::filesystem::path& file, unsigned index);

} // namespace pixmo
