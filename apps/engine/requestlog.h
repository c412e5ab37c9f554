#pragma once

#include "apps/engine/enginerequest.h"

#include <cstddef>
#include <filesystem>
#include <fstream>
#include <mutex>
#include <string>

namespace pixmo {

/// One line a request, fields parted by tabs: time (UTC), client address, kind, user, machine, document,
/// page, status, bytes of the body. "-" stands for a field without a value. May be used from several threads.
class RequestLog {
public:
    /// Appends. Throws std::runtime_error when the file cannot be opened; an empty path writes nothing.
    explicit RequestLog(const std::filesystem::path& file);

    void write(const std::string& client, const EngineRequest& request, const std::string& status,
               size_t bytes);

private:
    std::mutex mutex_;
    std::ofstream file_;
};

} // namespace pixmo
