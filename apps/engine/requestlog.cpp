#include "apps/engine/requestlog.h"

#include <array>
#include <chrono>
#include <ctime>
#include <sstream>
#include <stdexcept>

namespace pixmo {

namespace {

/// Control characters would break the line or its fields.
std::string field(std::string text) {
    for (char& c : text)
        if (static_cast<unsigned char>(c) < ' ' || c == '\x7F')
            c = '?';
    return text.empty() ? "-" : text;
}

std::string now() {
    using namespace std::chrono;
    const auto time = floor<milliseconds>(system_clock::now());
    const std::time_t seconds = system_clock::to_time_t(time);
    std::tm parts{};
    gmtime_r(&seconds, &parts);
    std::array<char, 32> text{};
    std::strftime(text.data(), text.size(), "%Y-%m-%dT%H:%M:%S.", &parts);
    const std::string fraction = std::to_string(time.time_since_epoch().count() % 1000);
    return text.data() + std::string(3 - fraction.size(), '0') + fraction + 'Z';
}

} // namespace

RequestLog::RequestLog(const std::filesystem::path& file) {
    if (file.empty())
        return;
    file_.open(file, std::ios::app | std::ios::binary);
    if (!file_)
        throw std::runtime_error("The log '" + file.string() + "' cannot be written.");
}

void RequestLog::write(const std::string& client, const EngineRequest& request, const std::string& status,
                       size_t bytes) {
    if (!file_.is_open())
        return;
    std::ostringstream line;
    line << now() << '\t' << field(client) << '\t' << requestCode(request.kind) << '\t' << field(request.user)
         << '\t' << field(request.machine) << '\t'
         << (request.document == 0 ? "-" : std::to_string(request.document)) << '\t'
         << (request.page == 0 ? "-" : std::to_string(request.page)) << '\t' << field(status) << '\t' << bytes
         << '\n';
    const std::lock_guard lock(mutex_);
    file_ << line.str() << std::flush;
}

} // namespace pixmo
