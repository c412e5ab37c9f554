#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace pixmo {

/// A single-byte code page: the Unicode scalar value of each of its 256 codes.
using CodePage = std::array<char32_t, 256>;

/// windows-1252 in the form that the operating system itself uses: the five codes without a character
/// stand for the C1 controls of the same value, so that every byte survives a round trip.
const CodePage& windows1252();

/// The code page in which texts travel; windows-1252 unless a face names its system's own.
/// Set once, before the first control is made.
void setAnsiCodePage(const CodePage& page);

/// One byte a character; a character that the code page lacks, and ill-formed UTF-8, becomes '?'.
std::string toAnsi(std::string_view utf8);

/// The code of the first character; 0 for no character.
int16_t ansiCode(std::string_view utf8);

/// One character a byte.
std::string fromAnsi(std::string_view bytes);

} // namespace pixmo
