#include "core/cipher/clsrc4.h"
#include "faces/scripted/scriptedports.h"

#include "core/base/ansi.h"
#include "core/base/error.h"

#include <gtest/gtest.h>

#include <fstream>
#include <numeric>
#include <vector>

namespace pixmo {
namespace {

namespace fs = std::filesystem;

std::vector<uint8_t> bytesOf(std::string_view text) {
    return {text.begin(), text.end()};
}

class RC4Files : public testing::Test {
protected:
    static std::string contents(const fs::path& path) {
        std::ifstream file(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    scripted::ScratchFolder scratch;
    const fs::path folder = scratch.path();
};

TEST(RC4, PublishedVectors) {
    struct Vector {
        const char* key;
        const char* plain;
        const char* cipherHex;
    };
    for (const Vector& v :
         {Vector{"Key", "Plaintext", "BBF316E8D940AF0AD3"}, Vector{"Wiki", "pedia", "1021BF0420"},
          Vector{"Secret", "Attack at dawn", "45A01F645FC35B383552544B9BF5"}}) {
        clsRC4 cipher;
        EXPECT_EQ(cipher.EncryptString(v.plain, v.key, true), v.cipherHex);
        EXPECT_EQ(cipher.DecryptString(v.cipherHex, v.key, true), v.plain);
    }
}

// RFC 6229: keystream at offsets 0 and 4096.
TEST(RC4, KeystreamOfRfc6229) {
    struct Vector {
        const char* keyHex;
        const char* at0;
        const char* at4096;
    };
    for (const Vector& v :
         {Vector{"0102030405", "B2396305F03DC027CCC3524A0A1118A8", "FF25B58995996707E51FBDF08B34D875"},
          Vector{"0102030405060708090A0B0C0D0E0F10", "9AC7CC9A609D1EF7B2932899CDE41B97",
                 "A36A4C301AE8AC13610CCBC12256CACC"}}) {
        clsRC4 cipher;
        std::vector<uint8_t> bytes(4112);
        cipher.EncryptByte(bytes, cipher.DeHex(v.keyHex));
        const std::string text = fromAnsi({reinterpret_cast<const char*>(bytes.data()), bytes.size()});
        const std::string hex = cipher.EnHex(text);
        EXPECT_EQ(hex.substr(0, 32), v.at0);
        EXPECT_EQ(hex.substr(8192, 32), v.at4096);
    }
}

TEST(RC4, EveryCallStartsFromTheKeyedState) {
    clsRC4 cipher;
    auto bytes = bytesOf("the same bytes");
    cipher.EncryptByte(bytes, "key");
    const auto enciphered = bytes;
    cipher.EncryptByte(bytes, "");
    EXPECT_EQ(bytes, bytesOf("the same bytes"));
    auto half = bytesOf("the same bytes");
    cipher.EncryptByte(std::span(half).subspan(0, 7), "key");
    cipher.EncryptByte(std::span(half).subspan(7), "key");
    EXPECT_NE(half, enciphered);
}

TEST(RC4, Keys) {
    clsRC4 cipher;
    EXPECT_NO_THROW(cipher.setKey(""));
    EXPECT_EQ(cipher.EncryptString("no key yet", "", false), "no key yet");
    EXPECT_EQ(cipher.EncryptString("x", std::string(300, 'k'), true), clsRC4().EncryptString("x", "k", true));
    EXPECT_EQ(clsRC4().EncryptString("x", std::string(256, 'a') + "b", true),
              clsRC4().EncryptString("x", "a", true));
    try {
        cipher.setKey("");
        FAIL() << "an empty key after another one was accepted";
    } catch (const Error& error) {
        EXPECT_EQ(error.Number, error_number::DivisionByZero);
    }
    EXPECT_EQ(cipher.Key(), "");
    // A key counts in characters: U+00B7 is one byte of the code page.
    EXPECT_EQ(clsRC4().EncryptString("x", "\u00B7\u00B7", true), clsRC4().EncryptString("x", "\u00B7", true));
}

TEST(RC4, HexDigits) {
    const clsRC4 codec;
    EXPECT_EQ(codec.EnHex("\n\u00FF"), "0AFF");
    EXPECT_EQ(codec.DeHex("0a0A"), "\n\n");
    EXPECT_EQ(codec.DeHex("G14x4"), std::string("\0\4\4", 3));
    EXPECT_EQ(codec.DeHex(""), "");
}

TEST(RC4, ProgressIsRaisedAboutOnceAPercent) {
    clsRC4 cipher;
    std::vector<int32_t> seen;
    cipher.Progress.connect([&](int32_t percent) { seen.push_back(percent); });
    std::vector<uint8_t> bytes(100'000);
    cipher.EncryptByte(bytes, "key");
    std::vector<int32_t> expected(101);
    std::iota(expected.begin(), expected.end(), 0);
    EXPECT_EQ(seen, expected);

    seen.clear();
    cipher.EncryptByte(std::span(bytes).subspan(0, 2), "");
    EXPECT_EQ(seen, (std::vector<int32_t>{0, 50, 100}));
    seen.clear();
    cipher.EncryptByte({}, "");
    EXPECT_EQ(seen, std::vector<int32_t>{100});
}

TEST_F(RC4Files, AreRewrittenOnlyWhenAllowed) {
    std::ofstream(folder / "plain", std::ios::binary) << "Plaintext";
    clsRC4 cipher;
    EXPECT_TRUE(cipher.EncryptFile(folder / "plain", folder / "secret", false, "Key"));
    EXPECT_EQ(contents(folder / "secret"), "\xBB\xF3\x16\xE8\xD9\x40\xAF\x0A\xD3");
    EXPECT_FALSE(cipher.DecryptFile(folder / "secret", folder / "plain", false, "Key"));
    EXPECT_TRUE(cipher.DecryptFile(folder / "secret", folder / "secret", true, "Key"));
    EXPECT_EQ(contents(folder / "secret"), "Plaintext");
    EXPECT_THROW(cipher.EncryptFile(folder / "absent", folder / "x", true, "Key"), Error);
    EXPECT_THROW(cipher.EncryptFile(folder / "plain", folder / "no" / "x", true, "Key"), Error);
}

} // namespace
} // namespace pixmo
