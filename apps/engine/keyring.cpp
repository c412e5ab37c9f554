#include "apps/engine/keyring.h"

#include <algorithm>

namespace pixmo {

void KeyRing::learn(const Contact& contact) {
    const std::lock_guard lock(mutex_);
    std::erase(contacts_, contact);
    contacts_.push_back(contact);
    if (contacts_.size() > capacity_)
        contacts_.pop_front();
}

std::vector<std::string> KeyRing::candidates(const std::string& address) const {
    const std::lock_guard lock(mutex_);
    std::vector<std::string> keys;
    for (const bool own : {true, false})
        for (auto contact = contacts_.rbegin(); contact != contacts_.rend(); ++contact)
            if ((contact->address == address) == own &&
                std::find(keys.begin(), keys.end(), contact->key) == keys.end())
                keys.push_back(contact->key);
    return keys;
}

} // namespace pixmo
