#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace pixmo {

/// U+FFFD, read in place of ill-formed UTF-8.
inline constexpr char32_t ReplacementCharacter = 0xFFFD;

inline constexpr std::string_view LineBreak = "\r\n";

/// The character at byte `at` (which must be below the size); moves `at` behind it. Ill-formed UTF-8
/// (RFC 3629: overlong, surrogate, beyond U+10FFFF, cut short) reads as ReplacementCharacter, one byte
/// at a time.
char32_t nextCharacter(std::string_view utf8, size_t& at);

void appendCharacter(std::string& utf8, char32_t character);

/// Texts are counted in characters, not in bytes.
size_t characterCount(std::string_view utf8);

/// The first character as text, or "".
std::string firstCharacter(std::string_view utf8);

/// Without the blanks (U+0020 only) at both ends.
std::string_view trimBlanks(std::string_view text);

/// With blanks for the line breaks.
std::string withoutBreaks(std::string_view text);

/// ASCII letters only; other characters stay.
std::string upperCase(std::string_view text);

/// Without difference of case in Latin, Greek and Cyrillic letters; every character keeps its place in the
/// text.
std::string foldCase(std::string_view text);

/// At every occurrence of the separator; an empty separator gives the whole text as one piece.
std::vector<std::string> split(std::string_view text, std::string_view separator);

/// Whether `text` holds `part`, ASCII letter case ignored.
bool containsIgnoringCase(std::string_view text, std::string_view part);

bool equalIgnoringCase(std::string_view left, std::string_view right);

/// The leading numeric part, blanks skipped; a text without one reads as 0.
double leadingNumber(std::string_view text);

/// Conversions of the host runtime: a whole text that is a number (sign, decimals, exponent, "&H" and "&O"
/// forms, blanks around), rounded half to even. Throws type mismatch (13) or overflow (6).
double toDouble(std::string_view text);
int16_t toInteger(std::string_view text);
int32_t toLong(std::string_view text);
/// The same of a number. Throw overflow (6).
int16_t roundToInteger(double value);
int32_t roundToLong(double value);

/// "True" and "False" in any case, or a number (0 is false). Throws type mismatch (13).
bool toBoolean(std::string_view text);

} // namespace pixmo
