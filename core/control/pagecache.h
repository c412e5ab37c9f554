#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <vector>

namespace pixmo {

/// Where the page files of the current document lie, by page number. Grows with the pages asked for, never
/// with a count that a server names.
class PageCache {
public:
    bool IsPageCached(int16_t page) const;
    /// Empty when not cached.
    std::filesystem::path file(int16_t page) const;
    void setFile(int16_t page, std::filesystem::path path);

    bool isForThumbnail(int16_t page) const;
    void setForThumbnail(int16_t page, bool forThumbnail);
    void growFlags(int16_t page);

    bool hasFiles() const;
    /// 0 when empty.
    int16_t highestPage() const;
    void clear();

private:
    std::vector<std::filesystem::path> files_{1}; ///< index 0 is unused
    std::vector<bool> thumbnailFlags_{false};
};

} // namespace pixmo
