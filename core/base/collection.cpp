#include "core/base/collection.h"

#include "core/base/error.h"

#include <algorithm>
#include <utility>

namespace pixmo {

void Collection::Add(std::string item, std::string key) {
    if (contains(key))
        throw Error(457, "This key is already associated with an element of this collection");
    entries_.push_back({std::move(key), std::move(item)});
}

void Collection::Remove(std::string_view key) {
    const auto found = std::find_if(entries_.begin(), entries_.end(),
                                    [key](const Entry& entry) { return entry.key == key; });
    if (found == entries_.end())
        throw Error(error_number::InvalidProcedureCall, "Invalid procedure call or argument");
    entries_.erase(found);
}

bool Collection::contains(std::string_view key) const {
    return std::any_of(entries_.begin(), entries_.end(),
                       [key](const Entry& entry) { return entry.key == key; });
}

std::vector<std::string> Collection::keys() const {
    std::vector<std::string> keys;
    for (const Entry& entry : entries_)
        keys.push_back(entry.key);
    return keys;
}

} // namespace pixmo
