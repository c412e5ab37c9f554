#include "core/base/text.h"

#include "core/base/error.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

namespace pixmo {

namespace {

char upper(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

bool isBlank(char c) {
    return c == ' ' || (c >= '\t' && c <= '\r');
}

std::string_view trimWhiteSpace(std::string_view text) {
    while (!text.empty() && isBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

bool isContinuation(char c) {
    return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U;
}

/// Bytes of the sequence that a lead byte starts; 0 for a byte that starts none.
size_t sequenceLength(unsigned char lead) {
    if (lead < 0x80)
        return 1;
    if (lead >= 0xC2 && lead <= 0xDF)
        return 2;
    if (lead >= 0xE0 && lead <= 0xEF)
        return 3;
    return lead >= 0xF0 && lead <= 0xF4 ? 4 : 0;
}

bool isScalarValueOfLength(char32_t value, size_t length) {
    if (length == 3)
        return value >= 0x800 && (value < 0xD800 || value > 0xDFFF);
    if (length == 4)
        return value >= 0x10000 && value <= 0x10FFFF;
    return true;
}

/// "&H1F", "&O17" or "&17" (octal) after the ampersand. A 16-bit pattern is read as signed, as the host
/// runtime reads it.
bool readRadixNumber(std::string_view digits, double& value) {
    int radix = 8;
    if (!digits.empty() && (upper(digits.front()) == 'H' || upper(digits.front()) == 'O')) {
        radix = upper(digits.front()) == 'H' ? 16 : 8;
        digits.remove_prefix(1);
    }
    uint32_t bits = 0;
    const auto [end, problem] = std::from_chars(digits.data(), digits.data() + digits.size(), bits, radix);
    if (digits.empty() || end != digits.data() + digits.size() || problem != std::errc())
        return false;
    value = bits <= 0xFFFF ? static_cast<int16_t>(bits) : static_cast<int32_t>(bits);
    return true;
}

/// Reads as much of a decimal number as there is; returns the rest. `value` is untouched when there is none.
std::string_view readDecimalNumber(std::string_view text, double& value) {
    std::string plain;
    for (const char c : text)
        plain.push_back(upper(c) == 'D' ? 'E' : c);
    const size_t sign = !plain.empty() && (plain.front() == '+' || plain.front() == '-') ? 1 : 0;
    if (sign >= plain.size() || !(plain[sign] == '.' || (plain[sign] >= '0' && plain[sign] <= '9')))
        return text;
    double magnitude = 0;
    const auto [end, problem] = std::from_chars(plain.data() + sign, plain.data() + plain.size(), magnitude);
    if (problem == std::errc::invalid_argument)
        return text;
    if (problem == std::errc::result_out_of_range)
        magnitude = std::numeric_limits<double>::infinity();
    value = plain.front() == '-' ? -magnitude : magnitude;
    return text.substr(static_cast<size_t>(end - plain.data()));
}

/// Half to even, whatever rounding mode the host's process has set.
double roundHalfToEven(double value) {
    const double below = std::floor(value);
    const double fraction = value - below;
    if (fraction < 0.5)
        return below;
    if (fraction > 0.5)
        return below + 1;
    return std::fmod(below, 2.0) == 0 ? below : below + 1;
}

template <typename Whole>
Whole toWhole(double value) {
    const double rounded = roundHalfToEven(value);
    if (!(rounded >= static_cast<double>(std::numeric_limits<Whole>::min()) &&
          rounded <= static_cast<double>(std::numeric_limits<Whole>::max())))
        throw overflowError();
    return static_cast<Whole>(rounded);
}

struct Capitals {
    char32_t first;
    char32_t last;
    char32_t step;     ///< from one capital letter to the next
    char32_t distance; ///< from a capital letter to its small one
};

/// Ranges of capital letters whose small form takes as many bytes.
constexpr Capitals KnownCapitals[] = {
    {'A', 'Z', 1, 32},     {0xC0, 0xD6, 1, 32},   {0xD8, 0xDE, 1, 32},   {0x100, 0x12E, 2, 1},
    {0x132, 0x136, 2, 1},  {0x139, 0x147, 2, 1},  {0x14A, 0x176, 2, 1},  {0x179, 0x17D, 2, 1},
    {0x391, 0x3A1, 1, 32}, {0x3A3, 0x3AB, 1, 32}, {0x400, 0x40F, 1, 80}, {0x410, 0x42F, 1, 32},
};

char32_t smallLetter(char32_t character) {
    for (const Capitals& each : KnownCapitals)
        if (character >= each.first && character <= each.last && (character - each.first) % each.step == 0)
            return character + each.distance;
    return character;
}

} // namespace

char32_t nextCharacter(std::string_view utf8, size_t& at) {
    const auto lead = static_cast<unsigned char>(utf8[at]);
    const size_t length = sequenceLength(lead);
    if (length == 1) {
        ++at;
        return lead;
    }
    if (length == 0 || at + length > utf8.size()) {
        ++at;
        return ReplacementCharacter;
    }
    char32_t value = lead & (0x7FU >> length);
    for (size_t i = 1; i < length; ++i) {
        if (!isContinuation(utf8[at + i])) {
            ++at;
            return ReplacementCharacter;
        }
        value = (value << 6U) | (static_cast<unsigned char>(utf8[at + i]) & 0x3FU);
    }
    if (!isScalarValueOfLength(value, length)) {
        ++at;
        return ReplacementCharacter;
    }
    at += length;
    return value;
}

void appendCharacter(std::string& utf8, char32_t character) {
    const auto put = [&utf8](char32_t byte) { utf8.push_back(static_cast<char>(byte)); };
    const auto continuation = [](char32_t bits) { return 0x80U | (bits & 0x3FU); };
    if (character < 0x80) {
        put(character);
    } else if (character < 0x800) {
        put(0xC0U | (character >> 6U));
        put(continuation(character));
    } else if (character < 0x10000) {
        put(0xE0U | (character >> 12U));
        put(continuation(character >> 6U));
        put(continuation(character));
    } else {
        put(0xF0U | (character >> 18U));
        put(continuation(character >> 12U));
        put(continuation(character >> 6U));
        put(continuation(character));
    }
}

size_t characterCount(std::string_view utf8) {
    size_t count = 0;
    for (size_t at = 0; at < utf8.size(); ++count)
        nextCharacter(utf8, at);
    return count;
}

std::string firstCharacter(std::string_view utf8) {
    if (utf8.empty())
        return {};
    size_t end = 0;
    nextCharacter(utf8, end);
    return std::string(utf8.substr(0, end));
}

std::string_view trimBlanks(std::string_view text) {
    const size_t first = text.find_first_not_of(' ');
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::string withoutBreaks(std::string_view text) {
    std::string line(text);
    std::erase(line, '\r');
    std::replace(line.begin(), line.end(), '\n', ' ');
    return line;
}

std::string upperCase(std::string_view text) {
    std::string result(text);
    std::transform(result.begin(), result.end(), result.begin(), upper);
    return result;
}

std::string foldCase(std::string_view text) {
    std::string folded;
    folded.reserve(text.size());
    for (size_t at = 0; at < text.size();) {
        const size_t begin = at;
        const char32_t character = nextCharacter(text, at);
        const char32_t small = smallLetter(character);
        if (small == character)
            folded += text.substr(begin, at - begin);
        else
            appendCharacter(folded, small);
    }
    return folded;
}

std::vector<std::string> split(std::string_view text, std::string_view separator) {
    std::vector<std::string> pieces;
    while (!separator.empty()) {
        const size_t at = text.find(separator);
        if (at == std::string_view::npos)
            break;
        pieces.emplace_back(text.substr(0, at));
        text.remove_prefix(at + separator.size());
    }
    pieces.emplace_back(text);
    return pieces;
}

bool containsIgnoringCase(std::string_view text, std::string_view part) {
    return std::search(text.begin(), text.end(), part.begin(), part.end(),
                       [](char a, char b) { return upper(a) == upper(b); }) != text.end() ||
           part.empty();
}

bool equalIgnoringCase(std::string_view left, std::string_view right) {
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [](char a, char b) { return upper(a) == upper(b); });
}

double leadingNumber(std::string_view text) {
    double value = 0;
    text = trimWhiteSpace(text);
    if (!text.empty() && text.front() == '&') {
        for (size_t length = text.size(); length > 1; --length)
            if (readRadixNumber(text.substr(1, length - 1), value))
                break;
        return value;
    }
    readDecimalNumber(text, value);
    return value;
}

double toDouble(std::string_view text) {
    text = trimWhiteSpace(text);
    double value = 0;
    if (!text.empty() && text.front() == '&') {
        if (!readRadixNumber(text.substr(1), value))
            throw typeMismatchError();
        return value;
    }
    const std::string_view rest = readDecimalNumber(text, value);
    if (text.empty() || !rest.empty())
        throw typeMismatchError();
    return value;
}

int16_t toInteger(std::string_view text) {
    return roundToInteger(toDouble(text));
}

int32_t toLong(std::string_view text) {
    return roundToLong(toDouble(text));
}

int16_t roundToInteger(double value) {
    return toWhole<int16_t>(value);
}

int32_t roundToLong(double value) {
    return toWhole<int32_t>(value);
}

bool toBoolean(std::string_view text) {
    text = trimWhiteSpace(text);
    if (equalIgnoringCase(text, "True"))
        return true;
    if (equalIgnoringCase(text, "False"))
        return false;
    return toDouble(text) != 0;
}

} // namespace pixmo
