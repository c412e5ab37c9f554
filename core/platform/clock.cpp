#include "core/platform/clock.h"

#include <array>
#include <clocale>
#include <ctime>
#include <string_view>

namespace pixmo {

std::string SystemClock::generalDate() const {
    const std::time_t now = std::time(nullptr);
    const std::tm* local = std::localtime(&now);
    if (!local)
        return {};
    const char* locale = std::setlocale(LC_TIME, nullptr);
    const std::string_view name = locale ? locale : "C";
    const bool plain = name == "C" || name == "POSIX" || name.starts_with("C.");
    std::array<char, 128> text{};
    const size_t length = plain ? std::strftime(text.data(), text.size(), "%Y-%m-%d %H:%M:%S", local)
                                : std::strftime(text.data(), text.size(), "%x %X", local);
    return {text.data(), length};
}

} // namespace pixmo
