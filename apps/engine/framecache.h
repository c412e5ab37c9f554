#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <list>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

namespace pixmo {

/// Frames taken out of multi-page TIFF files, the latest used ones. A file that changes (size or time) is
/// read anew. May be used from several threads.
class FrameCache {
public:
    /// `capacity` in bytes of all frames together.
    explicit FrameCache(size_t capacity = size_t{32} << 20U) : capacity_(capacity) {}

    /// As extractTiffFrame.
    std::optional<std::vector<uint8_t>> frame(const std::filesystem::path& file, size_t index);

    size_t bytesHeld() const;

private:
    struct Entry {
        std::string name; ///< of the file's state and of the frame
        std::vector<uint8_t> bytes;
    };

    std::optional<std::vector<uint8_t>> find(const std::string& name);
    void keep(const std::string& name, const std::vector<uint8_t>& bytes);

    size_t capacity_;
    mutable std::mutex mutex_;
    std::list<Entry> entries_; ///< latest used first
    size_t held_ = 0;
};

} // namespace pixmo
