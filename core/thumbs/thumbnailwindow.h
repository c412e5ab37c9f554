#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

namespace pixmo {

/// The window that lists the pages, as far as the session knows it.
class ThumbnailWindow {
public:
    virtual ~ThumbnailWindow() = default;

    virtual void PostImageToThumbnail(int16_t page, const std::filesystem::path& file, int32_t encBytes) = 0;
    /// The server refuses the page.
    virtual void failThumbnail(int16_t page, const std::string& reason) = 0;
    virtual void reset() = 0;
};

} // namespace pixmo
