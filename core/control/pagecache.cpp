#include "core/control/pagecache.h"

#include <algorithm>
#include <utility>

namespace pixmo {

bool PageCache::IsPageCached(int16_t page) const {
    return !file(page).empty();
}

std::filesystem::path PageCache::file(int16_t page) const {
    const auto index = static_cast<size_t>(std::max<int16_t>(page, 0));
    return index < files_.size() ? files_[index] : std::filesystem::path();
}

void PageCache::setFile(int16_t page, std::filesystem::path path) {
    const auto index = static_cast<size_t>(std::max<int16_t>(page, 0));
    if (index >= files_.size())
        files_.resize(index + 1);
    files_[index] = std::move(path);
}

void PageCache::growFlags(int16_t page) {
    const auto index = static_cast<size_t>(std::max<int16_t>(page, 0));
    if (index >= thumbnailFlags_.size())
        thumbnailFlags_.resize(index + 1);
}

bool PageCache::isForThumbnail(int16_t page) const {
    const auto index = static_cast<size_t>(std::max<int16_t>(page, 0));
    return index < thumbnailFlags_.size() && thumbnailFlags_[index];
}

void PageCache::setForThumbnail(int16_t page, bool forThumbnail) {
    growFlags(page);
    thumbnailFlags_[static_cast<size_t>(std::max<int16_t>(page, 0))] = forThumbnail;
}

bool PageCache::hasFiles() const {
    return std::any_of(files_.begin(), files_.end(), [](const auto& path) { return !path.empty(); });
}

int16_t PageCache::highestPage() const {
    return static_cast<int16_t>(files_.size() - 1);
}

void PageCache::clear() {
    files_.assign(1, {});
    thumbnailFlags_.assign(1, false);
}

} // namespace pixmo
