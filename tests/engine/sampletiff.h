#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace pixmo {

/// One picture of a TIFF file that a test writes; its pixels are a fixed pattern.
struct SampleFrame {
    uint16_t compression;
    uint16_t bitsPerSample = 8;
    uint16_t samplesPerPixel = 1;
    uint16_t photometric = 1;
    bool tiled = false;
    uint16_t predictor = 1;
    uint16_t fillOrder = 1;
    uint32_t width = 97;
    uint32_t height = 61;
};

/// `mode` is libtiff's: "wl" or "wb" for the byte order, with "8" for BigTIFF.
void writeTiff(const std::filesystem::path& file, const std::vector<SampleFrame>& frames,
               const std::string& mode = "wl");

/// What a frame is made of, read back from a file.
struct StoredFrame {
    std::vector<std::vector<uint8_t>> pieces; ///< raw strips or tiles
    std::vector<uint32_t> pixels;             ///< decoded, RGBA
    std::string description;                  ///< tags that matter to a viewer, as text

    bool operator==(const StoredFrame&) const = default;
};

StoredFrame readFrame(const std::filesystem::path& file, unsigned index);

} // namespace pixmo
