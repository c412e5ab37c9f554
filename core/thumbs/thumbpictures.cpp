#include "core/thumbs/thumbpictures.h"

#include <utility>

namespace pixmo {

ThumbState ThumbPictures::state(int32_t item) const {
    const auto found = entries_.find(item);
    return found == entries_.end() ? ThumbState::Empty : found->second.state;
}

std::string ThumbPictures::reason(int32_t item) const {
    const auto found = entries_.find(item);
    return found == entries_.end() ? std::string() : found->second.reason;
}

const ThumbPicture* ThumbPictures::picture(int32_t item) {
    const auto found = entries_.find(item);
    if (found == entries_.end() || found->second.state != ThumbState::Shown)
        return nullptr;
    used_.splice(used_.begin(), used_, found->second.use);
    return &found->second.picture;
}

void ThumbPictures::release(Entry& entry) {
    if (entry.state == ThumbState::Shown) {
        pixels_ -= entry.picture.pixels.size();
        used_.erase(entry.use);
    }
    entry = Entry();
}

void ThumbPictures::setLoading(int32_t item) {
    Entry& entry = entries_[item];
    release(entry);
    entry.state = ThumbState::Loading;
}

void ThumbPictures::setFailed(int32_t item, std::string reason) {
    Entry& entry = entries_[item];
    release(entry);
    entry.state = ThumbState::Failed;
    entry.reason = std::move(reason);
}

void ThumbPictures::setPicture(int32_t item, ThumbPicture picture) {
    Entry& entry = entries_[item];
    release(entry);
    entry.state = ThumbState::Shown;
    entry.picture = std::move(picture);
    pixels_ += entry.picture.pixels.size();
    used_.push_front(item);
    entry.use = used_.begin();
    keepBudget(item);
}

void ThumbPictures::keepBudget(int32_t newest) {
    while (pixels_ > PixelBudget && used_.back() != newest)
        setEmpty(used_.back());
}

void ThumbPictures::setEmpty(int32_t item) {
    const auto found = entries_.find(item);
    if (found == entries_.end())
        return;
    release(found->second);
    entries_.erase(found);
}

void ThumbPictures::clear() {
    entries_.clear();
    used_.clear();
    pixels_ = 0;
}

void ThumbPictures::dropPictures() {
    const std::list<int32_t> items = used_;
    for (const int32_t item : items)
        setEmpty(item);
}

} // namespace pixmo
