#include "core/base/ansi.h"

#include <gtest/gtest.h>

namespace pixmo {
namespace {

TEST(Ansi, OneByteACharacter) {
    EXPECT_EQ(toAnsi("\u00B7"), "\xB7");
    EXPECT_EQ(toAnsi("\u20AC \u0160\u0178"), "\x80 \x8A\x9F");
    EXPECT_EQ(toAnsi("\u4E2D|\U0001F600|\xFF"), "?|?|?");
}

TEST(Ansi, EveryByteSurvivesARoundTrip) {
    std::string bytes;
    for (int code = 0; code < 256; ++code)
        bytes.push_back(static_cast<char>(code));
    EXPECT_EQ(toAnsi(fromAnsi(bytes)), bytes);
}

TEST(Ansi, AFaceMayNameItsSystemsCodePage) {
    CodePage cyrillic = windows1252();
    cyrillic[0xE6] = 0x0436;
    setAnsiCodePage(cyrillic);
    EXPECT_EQ(toAnsi("\u0436\u00E6"), "\xE6?");
    // Some pages put a character of their own among the first 128 codes.
    CodePage japanese = windows1252();
    japanese[0x5C] = 0x00A5;
    setAnsiCodePage(japanese);
    EXPECT_EQ(toAnsi("a\u00A5\\"), "a\\?");
    EXPECT_EQ(fromAnsi("a\\"), "a\u00A5");
    setAnsiCodePage(windows1252());
    EXPECT_EQ(toAnsi("\u0436\u00E6"), "?\xE6");
}

} // namespace
} // namespace pixmo
