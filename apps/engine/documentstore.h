#pragma once

#include "apps/engine/framecache.h"
#include "apps/engine/property.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <vector>

namespace pixmo {

/// The documents below a folder: each is a folder named by its identifier, and its pages are the picture
/// files in it in natural order, or the frames of the only one when that is a multi-page TIFF. Nothing is
/// remembered of the disk but extracted frames, so documents may come, change and go while they are served.
/// Symbolic links are followed only where they stay below the root. May be used from several threads.
class DocumentStore {
public:
    /// Throws std::runtime_error when there is no such folder.
    explicit DocumentStore(const std::filesystem::path& root);

    /// Nothing when there is no such document.
    std::optional<size_t> pageCount(int32_t document) const;

    /// The file of a page (from 1), clear. Nothing when it is missing, empty or cannot be read.
    std::optional<std::vector<uint8_t>> page(int32_t document, size_t page) const;

    /// Lines NAME=VALUE of the file properties.txt of the document (UTF-8); others are ignored.
    std::vector<Property> properties(int32_t document) const;

private:
    std::optional<std::filesystem::path> folder(int32_t document) const;
    std::vector<std::filesystem::path> pictures(const std::filesystem::path& folder) const;
    /// The real path of a regular file below the root.
    std::optional<std::filesystem::path> inside(const std::filesystem::path& path) const;

    std::filesystem::path root_;
    mutable FrameCache frames_;
};

} // namespace pixmo
