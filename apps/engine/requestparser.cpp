#include "apps/engine/requestparser.h"

#include "core/base/ansi.h"
#include "core/base/text.h"
#include "core/cipher/clsrc4.h"

#include <algorithm>
#include <charconv>
#include <optional>

namespace pixmo {

namespace {

constexpr size_t ContactFields = 6; // user, machine, title, major, minor, revision
constexpr size_t KindDigits = 6;    // of the two letters and the delimiter
constexpr size_t PageCountFields = 4;
constexpr size_t GetPageFields = 5; // one more with the flag

bool isHexDigit(char c) {
    return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'F') || (c >= 'a' && c <= 'f');
}

bool isHexText(std::string_view text) {
    return !text.empty() && text.size() % 2 == 0 && std::all_of(text.begin(), text.end(), isHexDigit);
}

template <typename Number>
std::optional<Number> wholeNumber(std::string_view text) {
    Number number = 0;
    const auto [end, problem] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (problem != std::errc() || end != text.data() + text.size())
        return std::nullopt;
    return number;
}

/// Version fields are numbers written as text, so possibly with decimals.
bool isVersionNumber(std::string_view text) {
    return !text.empty() && text.find_first_not_of("0123456789+-.E") == std::string_view::npos;
}

bool isContact(std::span<const std::string> fields) {
    return fields.size() >= ContactFields &&
           std::all_of(fields.end() - 3, fields.end(),
                       [](const auto& field) { return isVersionNumber(field); });
}

void readContact(std::span<const std::string> fields, EngineRequest& request) {
    request.user = fields[0];
    request.machine = fields[1];
    const size_t version = fields.size() - 3;
    request.product =
        fields[2] + ' ' + fields[version] + '.' + fields[version + 1] + '.' + fields[version + 2];
    request.problem = RequestProblem::None;
}

/// Fields of a page count or page request; leaves the problem as it is unless all of them are good.
void readPageRequest(std::span<const std::string> fields, EngineRequest& request) {
    const bool countsPages = request.kind == RequestKind::PageCount;
    if (countsPages ? fields.size() != PageCountFields
                    : fields.size() < GetPageFields || fields.size() > GetPageFields + 1)
        return;
    const auto document = wholeNumber<int32_t>(fields[3]);
    const auto page = countsPages ? std::optional<int16_t>(0) : wholeNumber<int16_t>(fields[4]);
    if (!document || !page)
        return;
    request.user = fields[1];
    request.machine = fields[2];
    request.document = *document;
    request.page = *page;
    request.problem = RequestProblem::None;
}

RequestKind kindOf(std::string_view plain, std::string_view delimiter) {
    for (const RequestKind kind : {RequestKind::PageCount, RequestKind::GetPage})
        if (plain.substr(0, 2) == requestCode(kind) && plain.substr(2, delimiter.size()) == delimiter)
            return kind;
    return RequestKind::Unknown;
}

} // namespace

std::string RequestParser::percentDecoded(std::string_view text) {
    std::string bytes;
    bytes.reserve(text.size());
    for (size_t at = 0; at < text.size(); ++at) {
        unsigned value = 0;
        if (text[at] == '%' && at + 2 < text.size() && isHexDigit(text[at + 1]) && isHexDigit(text[at + 2])) {
            std::from_chars(text.data() + at + 1, text.data() + at + 3, value, 16);
            bytes.push_back(static_cast<char>(value));
            at += 2;
        } else {
            bytes.push_back(text[at]);
        }
    }
    return bytes;
}

EngineRequest RequestParser::parse(std::string_view query, std::span<const std::string> keys) const {
    const std::string text = fromAnsi(percentDecoded(query));
    EngineRequest request;
    if (text.starts_with("IC"))
        request = parseContact(text);
    else if (isHexText(text))
        request = parseEnciphered(text, keys);
    if (request.delimiter.empty())
        request.delimiter = delimiters_.front();
    return request;
}

EngineRequest RequestParser::parseContact(std::string_view text) const {
    EngineRequest request;
    request.kind = RequestKind::InitialContact;
    request.delimiter = delimiters_.front();
    const auto parts = split(text, request.delimiter);
    if (parts.size() != 3 || parts[0] != "IC" || !isHexText(parts[1]) || !isHexText(parts[2]))
        return request;
    clsRC4 cipher;
    request.key = cipher.DeHex(parts[1]);
    const auto fields = split(cipher.DecryptString(parts[2], request.key, true), request.delimiter);
    if (isContact(fields))
        readContact(fields, request);
    return request;
}

EngineRequest RequestParser::parseEnciphered(std::string_view hex, std::span<const std::string> keys) const {
    EngineRequest best;
    best.problem = RequestProblem::NoKey;
    for (const std::string& key : keys) {
        clsRC4 cipher;
        // The first bytes rule out nearly every wrong key, whatever the length of the request.
        const std::string start = cipher.DecryptString(hex.substr(0, KindDigits), key, true);
        for (const std::string& delimiter : delimiters_) {
            EngineRequest request;
            request.kind = kindOf(start, delimiter);
            if (request.kind == RequestKind::Unknown)
                continue;
            request.key = key;
            request.delimiter = delimiter;
            readPageRequest(split(cipher.DecryptString(hex, key, true), delimiter), request);
            if (request.problem == RequestProblem::None)
                return request;
            // Kept in case no other key does better: its sender can at least read the answer.
            if (best.problem == RequestProblem::NoKey)
                best = request;
        }
    }
    return best;
}

} // namespace pixmo
