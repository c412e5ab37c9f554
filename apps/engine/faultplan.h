#pragma once

#include "apps/engine/fault.h"

#include <cstdint>
#include <mutex>
#include <string_view>
#include <vector>

namespace pixmo {

/// The faults in force, and how many requests each has met. May be used from several threads.
class FaultPlan {
public:
    /// In place of those before; every count starts anew.
    void replace(const std::vector<Fault>& faults);

    /// The faults of the next request of that kind, in the order given.
    std::vector<Fault> take(RequestKind kind);

private:
    struct Entry {
        Fault fault;
        uint32_t met = 0;
    };

    std::mutex mutex_;
    std::vector<Entry> entries_;
};

/// One fault a line; empty lines are skipped. Throws as parseFault.
std::vector<Fault> parseFaults(std::string_view lines);

} // namespace pixmo
