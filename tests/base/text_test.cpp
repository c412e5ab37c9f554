#include "core/base/text.h"

#include "core/base/error.h"

#include <gtest/gtest.h>

namespace pixmo {
namespace {

int32_t numberOf(auto&& action) {
    try {
        action();
    } catch (const Error& error) {
        return error.Number;
    }
    return 0;
}

TEST(Text, IllFormedUtf8IsReadOneByteAtATime) {
    EXPECT_EQ(characterCount("a\u00B7\u20AC\U0001F600"), 4U);
    EXPECT_EQ(characterCount("\xC0\xAF"), 2U);         // overlong
    EXPECT_EQ(characterCount("\xED\xA0\x80"), 3U);     // surrogate
    EXPECT_EQ(characterCount("\xF4\x8F\xBF\xBF"), 1U); // U+10FFFF
    EXPECT_EQ(characterCount("\xF4\x90\x80\x80"), 4U); // beyond U+10FFFF
    EXPECT_EQ(characterCount("\xE2\x82"), 2U);         // cut short
    EXPECT_EQ(firstCharacter("\u00B7x"), "\u00B7");
    EXPECT_EQ(firstCharacter(""), "");
}

TEST(Text, SplitKeepsEmptyPieces) {
    EXPECT_EQ(split("a\u00B7\u00B7b\u00B7", "\u00B7"), (std::vector<std::string>{"a", "", "b", ""}));
    EXPECT_EQ(split("", "|"), std::vector<std::string>{""});
    EXPECT_EQ(split("a|b", ""), std::vector<std::string>{"a|b"});
}

TEST(Text, WholeNumbersFollowTheHostRuntime) {
    EXPECT_EQ(toInteger(" 12 "), 12);
    EXPECT_EQ(toInteger("2.5"), 2);
    EXPECT_EQ(toInteger("3.5"), 4);
    EXPECT_EQ(toInteger("-2.5"), -2);
    EXPECT_EQ(toInteger("1e3"), 1000);
    EXPECT_EQ(toInteger("&HFFFF"), -1);
    EXPECT_EQ(toLong("-2147483648"), -2147483647 - 1);
    for (const char* text : {"", "  ", "abc", "12a", "1 2", "--1", "+", ".", "e5", "&", "&HG"})
        EXPECT_EQ(numberOf([&] { toInteger(text); }), error_number::TypeMismatch) << text;
    for (const char* text : {"32768", "-32769", "32767.5", "1e400"})
        EXPECT_EQ(numberOf([&] { toInteger(text); }), error_number::Overflow) << text;
    EXPECT_EQ(toInteger("32767.4"), 32767);
    EXPECT_EQ(numberOf([] { toLong("2147483648"); }), error_number::Overflow);
}

TEST(Text, LeadingNumbersReadAsFarAsTheyGo) {
    EXPECT_EQ(leadingNumber("02"), 2);
    EXPECT_EQ(leadingNumber("1.0beta"), 1);
    EXPECT_EQ(leadingNumber(" -3x"), -3);
    EXPECT_EQ(leadingNumber("x1"), 0);
    EXPECT_EQ(leadingNumber("&H1Fz"), 31);
}

TEST(Text, Booleans) {
    EXPECT_TRUE(toBoolean(" tRUE "));
    EXPECT_FALSE(toBoolean("FALSE"));
    EXPECT_TRUE(toBoolean("-1"));
    EXPECT_FALSE(toBoolean("0"));
    EXPECT_EQ(numberOf([] { toBoolean("yes"); }), error_number::TypeMismatch);
}

TEST(Text, SearchIgnoresCase) {
    EXPECT_TRUE(containsIgnoringCase("an ErR or", "err"));
    EXPECT_FALSE(containsIgnoringCase("er", "err"));
    EXPECT_TRUE(containsIgnoringCase("", ""));
}

} // namespace
} // namespace pixmo
