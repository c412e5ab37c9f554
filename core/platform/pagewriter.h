#pragma once

#include <filesystem>

namespace pixmo {

struct Raster;

/// Port: writes a page as a picture file.
class PageWriter {
public:
    virtual ~PageWriter() = default;

    /// PNG for the ending ".png", else TIFF 6.0 (1 bit as ITU-T T.6). Full resolution and depth. Leaves no
    /// part of a file. Throws path/file access (75) or disk full (61).
    virtual void write(const Raster& page, const std::filesystem::path& path) const = 0;
};

} // namespace pixmo
