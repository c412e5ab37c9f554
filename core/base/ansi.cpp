#include "core/base/ansi.h"

#include "core/base/text.h"

#include <cstddef>
#include <cstdint>
#include <unordered_map>

namespace pixmo {

namespace {

constexpr CodePage makeWindows1252() {
    CodePage page{};
    for (size_t code = 0; code < page.size(); ++code)
        page[code] = static_cast<char32_t>(code);
    constexpr std::array<char32_t, 32> upper = {
        0x20AC, 0x81,   0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
        0x2039, 0x0152, 0x8D,   0x017D, 0x8F,   0x90,   0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
        0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x9D,   0x017E, 0x0178};
    for (size_t i = 0; i < upper.size(); ++i)
        page[0x80 + i] = upper[i];
    return page;
}

constexpr CodePage Windows1252 = makeWindows1252();

struct AnsiTables {
    CodePage characters = Windows1252;
    std::unordered_map<char32_t, unsigned char> codes;
    bool keepsAscii = true; ///< whether the first 128 codes stand for themselves, as in all but odd pages

    AnsiTables() { index(); }

    void index() {
        codes.clear();
        for (size_t code = 0; code < characters.size(); ++code)
            codes.emplace(characters[code], static_cast<unsigned char>(code));
        keepsAscii = true;
        for (char32_t code = 0; code < 0x80; ++code)
            keepsAscii = keepsAscii && characters[code] == code;
    }

    /// How many bytes from `at` on are the same in UTF-8 and in the code page.
    size_t plainBytes(std::string_view text, size_t at) const {
        size_t end = at;
        while (keepsAscii && end < text.size() && static_cast<unsigned char>(text[end]) < 0x80)
            ++end;
        return end - at;
    }
};

AnsiTables& tables() {
    static AnsiTables instance;
    return instance;
}

} // namespace

const CodePage& windows1252() {
    return Windows1252;
}

void setAnsiCodePage(const CodePage& page) {
    tables().characters = page;
    tables().index();
}

std::string toAnsi(std::string_view utf8) {
    const AnsiTables& page = tables();
    const auto& codes = page.codes;
    std::string bytes;
    bytes.reserve(utf8.size());
    for (size_t at = 0; at < utf8.size();) {
        if (const size_t plain = page.plainBytes(utf8, at); plain > 0) {
            bytes.append(utf8, at, plain);
            at += plain;
            continue;
        }
        const char32_t character = nextCharacter(utf8, at);
        const auto found = codes.find(character);
        bytes.push_back(found == codes.end() ? '?' : static_cast<char>(found->second));
    }
    return bytes;
}

int16_t ansiCode(std::string_view utf8) {
    const std::string bytes = toAnsi(firstCharacter(utf8));
    return static_cast<int16_t>(bytes.empty() ? 0 : static_cast<unsigned char>(bytes.front()));
}

std::string fromAnsi(std::string_view bytes) {
    const AnsiTables& page = tables();
    std::string utf8;
    utf8.reserve(bytes.size());
    for (size_t at = 0; at < bytes.size(); ++at) {
        const size_t plain = page.plainBytes(bytes, at);
        utf8.append(bytes, at, plain);
        at += plain;
        if (at < bytes.size())
            appendCharacter(utf8, page.characters[static_cast<unsigned char>(bytes[at])]);
    }
    return utf8;
}

} // namespace pixmo
