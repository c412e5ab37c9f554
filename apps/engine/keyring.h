#pragma once

#include <cstddef>
#include <deque>
#include <mutex>
#include <string>
#include <vector>

namespace pixmo {

/// The keys learnt from initial contacts, newest last, each with the client that gave it. Bounded; may be
/// used from several threads.
class KeyRing {
public:
    struct Contact {
        std::string address; ///< of the network
        std::string user;
        std::string machine;
        std::string key; ///< not empty

        bool operator==(const Contact&) const = default;
    };

    explicit KeyRing(size_t capacity = 64) : capacity_(capacity) {}

    /// A contact that is known already becomes the newest.
    void learn(const Contact& contact);

    /// Every key once, in the order in which they are worth trying for a request from that address: those
    /// learnt from it, newest first, then the others, newest first.
    std::vector<std::string> candidates(const std::string& address) const;

private:
    size_t capacity_;
    mutable std::mutex mutex_;
    std::deque<Contact> contacts_;
};

} // namespace pixmo
