#include "apps/engine/framecache.h"

#include "apps/engine/tiffframes.h"

#include <algorithm>

namespace pixmo {

namespace fs = std::filesystem;

namespace {

/// "" for a file that is not there.
std::string stateName(const fs::path& file, size_t index) {
    std::error_code problem;
    const auto size = fs::file_size(file, problem);
    if (problem)
        return {};
    const auto time = fs::last_write_time(file, problem).time_since_epoch().count();
    return std::to_string(index) + ' ' + std::to_string(size) + ' ' + std::to_string(time) + ' ' +
           file.string();
}

} // namespace

std::optional<std::vector<uint8_t>> FrameCache::frame(const fs::path& file, size_t index) {
    const std::string name = stateName(file, index);
    if (name.empty())
        return std::nullopt;
    if (auto known = find(name))
        return known;
    auto bytes = extractTiffFrame(file, index);
    if (bytes)
        keep(name, *bytes);
    return bytes;
}

size_t FrameCache::bytesHeld() const {
    const std::lock_guard lock(mutex_);
    return held_;
}

std::optional<std::vector<uint8_t>> FrameCache::find(const std::string& name) {
    const std::lock_guard lock(mutex_);
    const auto entry = std::find_if(entries_.begin(), entries_.end(),
                                    [&](const Entry& candidate) { return candidate.name == name; });
    if (entry == entries_.end())
        return std::nullopt;
    entries_.splice(entries_.begin(), entries_, entry);
    return entry->bytes;
}

void FrameCache::keep(const std::string& name, const std::vector<uint8_t>& bytes) {
    const std::lock_guard lock(mutex_);
    entries_.push_front({name, bytes});
    held_ += bytes.size();
    while (held_ > capacity_) {
        held_ -= entries_.back().bytes.size();
        entries_.pop_back();
    }
}

} // namespace pixmo
