#include "faces/com/ports/responsehead.h"

#include "core/base/text.h"
#include "core/control/download.h"

#include <charconv>
#include <string_view>
#include <utility>

namespace pixmo::com {

namespace {

/// "HTTP/1.1 404 Not Found"
std::string phraseOf(std::string_view statusLine) {
    const size_t code = statusLine.find(' ');
    const size_t phrase = code == std::string_view::npos ? code : statusLine.find(' ', code + 1);
    return phrase == std::string_view::npos ? std::string()
                                            : std::string(trimBlanks(statusLine.substr(phrase)));
}

int64_t sizeOf(std::string_view digits) {
    int64_t size = -1;
    const auto [end, problem] = std::from_chars(digits.data(), digits.data() + digits.size(), size);
    return problem == std::errc() && end == digits.data() + digits.size() && size >= 0 ? size : -1;
}

} // namespace

ResponseHead readResponseHead(const std::string& head) {
    ResponseHead result;
    bool packed = false;
    bool first = true;
    for (const std::string& line : split(head, LineBreak)) {
        if (std::exchange(first, false)) {
            result.phrase = phraseOf(line);
            continue;
        }
        const size_t colon = line.find(':');
        if (colon == std::string::npos)
            continue;
        const std::string_view name = std::string_view(line).substr(0, colon);
        const std::string_view value = trimBlanks(std::string_view(line).substr(colon + 1));
        if (equalIgnoringCase(name, "Content-Length"))
            result.bodySize = sizeOf(value);
        else if (equalIgnoringCase(name, PackingHeader))
            packed = !equalIgnoringCase(value, NotPacked);
    }
    if (packed)
        result.bodySize = -1;
    return result;
}

} // namespace pixmo::com
