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

bool ThumbPictures::isWanted(int32_t item) const {
    const auto found = entries_.find(item);
    return found == entries_.end() || found->second.state == ThumbState::Empty ||
           (found->second.state == ThumbState::Shown && found->second.outdated);
}

const ThumbPicture* ThumbPictures::picture(int32_t item) {
    const auto found = entries_.find(item);
    if (found == entries_.end() || found->second.picture.pixels.empty())
        return nullptr;
    used_.splice(used_.begin(), used_, found->second.use);
    return &found->second.picture;
}

void ThumbPictures::release(Entry& entry) {
    if (!entry.picture.pixels.empty()) {
        pixels_ -= entry.picture.pixels.size();
        used_.erase(entry.use);
    }
    entry = Entry();
}

void ThumbPictures::setLoading(int32_t item) {
    entries_[item].state = ThumbState::Loading;
}

void ThumbPictures::setFailed(int32_t item, std::string reason) {
    Entry& entry = entries_[item];
    release(entry);
    entry.state = ThumbState::Failed;
    entry.reason = std::move(reason);
}

void ThumbPictures::setPicture(int32_t item, ThumbPicture picture, int32_t firstKept, int32_t endKept) {
    Entry& entry = entries_[item];
    release(entry);
    entry.state = ThumbState::Shown;
    entry.picture = std::move(picture);
    pixels_ += entry.picture.pixels.size();
    used_.push_front(item);
    entry.use = used_.begin();
    keepBudget(item, firstKept, endKept);
}

void ThumbPictures::keepBudget(int32_t newest, int32_t firstKept, int32_t endKept) {
    for (auto use = used_.end(); pixels_ > PixelBudget && use != used_.begin();) {
        const int32_t item = *--use;
        if (item == newest || (item >= firstKept && item < endKept))
            continue;
        ++use;
        setEmpty(item);
    }
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

void ThumbPictures::outdatePictures() {
    for (const int32_t item : used_)
        entries_[item].outdated = true;
}

} // namespace pixmo
