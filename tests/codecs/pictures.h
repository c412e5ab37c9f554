#pragma once

#include <cstdint>
#include <ostream>
#include <string>
#include <vector>

namespace pixmo {

/// A line of pictures/pictures.txt: a stored file and what it is to show, whoever decodes it. See
/// pictures/README.md.
struct StoredPicture {
    std::string file;
    std::string format; ///< bilevel, gray, rgb
    int32_t bits = 0;
    double xResolution = 0;
    double yResolution = 0;
    std::string colours; ///< of 0 and 1 where the format is bilevel
    int tolerance = 0;   ///< in levels of a colour
    std::string seen;    ///< a file of plain pixels in pictures/seen
};

std::vector<StoredPicture> storedPictures();

std::vector<uint8_t> storedBytes(const std::string& file);

inline void PrintTo(const StoredPicture& picture, std::ostream* out) {
    *out << picture.file;
}

} // namespace pixmo
