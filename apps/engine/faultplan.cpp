#include "apps/engine/faultplan.h"

#include "core/base/text.h"

#include <string>

namespace pixmo {

void FaultPlan::replace(const std::vector<Fault>& faults) {
    const std::lock_guard lock(mutex_);
    entries_.clear();
    for (const Fault& fault : faults)
        entries_.push_back({fault});
}

std::vector<Fault> FaultPlan::take(RequestKind kind) {
    const std::lock_guard lock(mutex_);
    std::vector<Fault> taken;
    for (Entry& entry : entries_) {
        if (!entry.fault.concerns(kind) || (entry.fault.first && entry.met >= *entry.fault.first))
            continue;
        ++entry.met;
        taken.push_back(entry.fault);
    }
    return taken;
}

std::vector<Fault> parseFaults(std::string_view lines) {
    std::vector<Fault> faults;
    for (std::string& line : split(lines, "\n")) {
        if (line.ends_with('\r'))
            line.pop_back();
        if (!line.empty())
            faults.push_back(parseFault(line));
    }
    return faults;
}

} // namespace pixmo
