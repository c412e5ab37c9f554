#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include <tiffio.h>

namespace pixmo {

/// How a test TIFF is stored.
struct TiffSpec {
    uint32_t width = 37;
    uint32_t height = 29;
    uint16_t bits = 1;
    uint16_t samples = 1;
    uint16_t photometric = PHOTOMETRIC_MINISWHITE;
    uint16_t compression = COMPRESSION_NONE;
    uint32_t faxOptions = 0;
    uint32_t rowsPerStrip = 0; ///< 0: one strip
    uint32_t tile = 0;         ///< side of a tile; 0: strips
    bool separate = false;
    uint16_t fillOrder = FILLORDER_MSB2LSB;
    uint16_t orientation = 0; ///< 0: no tag
    uint16_t extraKind = EXTRASAMPLE_UNSPECIFIED;
    uint16_t resolutionUnit = 0; ///< 0: no tags
    float xResolution = 0;
    float yResolution = 0;
    const char* mode = "w";
    int pages = 1; ///< the pages after the first are blank
};

/// Encodes the patternSample picture; of each sample the top `bits` are taken. Empty when the library
/// cannot write it.
std::vector<uint8_t> makeTiff(const TiffSpec& spec);

/// The colour map that a palette TIFF gets: 0xRRGGBB of an index.
uint32_t tiffMapColour(uint32_t index);

/// One entry of a directory written by hand.
struct TiffEntry {
    uint16_t tag;
    uint16_t type;
    uint32_t count;
    uint32_t value;
};

/// A little-endian TIFF: header, one directory, then `data`, which begins at tiffDataOffset(entries).
std::vector<uint8_t> buildTiff(const std::vector<TiffEntry>& entries, const std::vector<uint8_t>& data,
                               uint32_t nextDirectory = 0);
uint32_t tiffDataOffset(size_t entries);

/// The one strip of a little-endian TIFF, still encoded.
std::vector<uint8_t> storedStrip(const std::vector<uint8_t>& tiff);

/// A TIFF as makeTiff would make it, around a strip encoded elsewhere.
std::vector<uint8_t> wrapStrip(const TiffSpec& spec, const std::vector<uint8_t>& strip);

} // namespace pixmo
