#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace pixmo {

/// Texts under unique keys, in the order of their coming. Keys are compared exactly.
class Collection {
public:
    /// Throws error 457 when the key is there already.
    void Add(std::string item, std::string key);
    /// Throws invalid procedure call (5) when there is no such key.
    void Remove(std::string_view key);

    bool contains(std::string_view key) const;
    size_t Count() const { return entries_.size(); }
    std::vector<std::string> keys() const;

private:
    struct Entry {
        std::string key;
        std::string item;
    };
    std::vector<Entry> entries_;
};

} // namespace pixmo
