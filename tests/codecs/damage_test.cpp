#include "codecs/pagecodecs.h"
#include "core/base/error.h"
#include "tests/codecs/pictures.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>

namespace pixmo {
namespace {

struct Sample {
    std::string name;
    std::vector<uint8_t> bytes;
};

/// One of each kind and coding.
std::vector<Sample> samples() {
    std::vector<Sample> all;
    for (const char* name :
         {"tiff-plain-rgb8x3-strips8.tif", "tiff-packbits-white1.tif", "tiff-lzw-rgb8x3-tiles-lsb.tif",
          "tiff-deflate-black8-strips8-lsb.tif", "tiff-rle-white1.tif", "tiff-g3-white1.tif",
          "tiff-g4-white1-tiles-lsb.tif", "tiff-jpeg-rgb8x3-strips16.tif", "jpeg-ycc.jpg",
          "jpeg-gray-progressive.jpg", "jpeg-cmyk-arithmetic.jpg", "png-gray1.png", "png-map4-interlaced.png",
          "png-rgba16.png", "gif4-one-frame.gif", "bmp8-runs.bmp", "bmp24-header40.bmp"})
        all.push_back({name, storedBytes(name)});
    return all;
}

/// The error's text, or "" when the bytes decode.
std::string problemOf(const PageCodecs& codecs, std::span<const uint8_t> bytes, Raster* raster = nullptr) {
    try {
        Raster decoded = codecs.decode(bytes);
        if (raster != nullptr)
            *raster = std::move(decoded);
        return {};
    } catch (const Error& error) {
        EXPECT_EQ(error.Number, error_number::InvalidPicture);
        EXPECT_FALSE(error.Description.empty());
        return error.Description;
    }
}

TEST(Damage, APageCutShortIsNeverShown) {
    const PageCodecs codecs;
    for (const Sample& sample : samples()) {
        const Raster whole = codecs.decode(sample.bytes);
        size_t refused = 0;
        for (size_t length = 0; length < sample.bytes.size(); ++length) {
            // A copy of its own length lets the sanitizer see a read behind the end.
            const std::vector<uint8_t> cut(sample.bytes.begin(),
                                           sample.bytes.begin() + static_cast<std::ptrdiff_t>(length));
            Raster raster;
            if (problemOf(codecs, cut, &raster).empty())
                EXPECT_EQ(raster.pixels, whole.pixels) << sample.name << " cut at " << length;
            else
                ++refused;
        }
        EXPECT_GE(refused + 4, sample.bytes.size()) << sample.name;
    }
}

TEST(Damage, PaddingBehindThePictureIsNoDamage) {
    const PageCodecs codecs;
    for (const Sample& sample : samples()) {
        auto padded = sample.bytes;
        padded.insert(padded.end(), 1000, uint8_t{0});
        EXPECT_EQ(codecs.decode(padded).pixels, codecs.decode(sample.bytes).pixels) << sample.name;
    }
}

TEST(Damage, FlippedBytesEndInAnErrorOrAPicture) {
    const PageCodecs codecs(DecodeLimits{.pixels = 1'000'000, .bytes = 4'000'000});
    std::mt19937 random(20240229);
    size_t refused = 0;
    for (const Sample& sample : samples())
        for (int round = 0; round < 400; ++round) {
            auto bytes = sample.bytes;
            for (uint32_t flips = 1 + random() % 4; flips > 0; --flips)
                bytes[random() % bytes.size()] ^= static_cast<uint8_t>(1U << random() % 8);
            refused += problemOf(codecs, bytes).empty() ? 0U : 1U;
        }
    EXPECT_GT(refused, 1000U);
}

TEST(Damage, ChecksumsOfPng) {
    const PageCodecs codecs;
    const auto whole = storedBytes("png-rgb8-transparent.png");
    for (size_t at = 8; at < whole.size(); at += 7) {
        auto bytes = whole;
        bytes[at] ^= 0x10;
        EXPECT_NE(problemOf(codecs, bytes), "") << "byte " << at;
    }
}

TEST(Limits, OfPixelsAndBytes) {
    PageCodecs codecs;
    for (const Sample& sample : samples()) {
        const Raster whole = codecs.decode(sample.bytes);
        const auto pixels = static_cast<uint64_t>(whole.width) * static_cast<uint64_t>(whole.height);
        codecs.setLimits({.pixels = pixels, .bytes = 1'000'000});
        EXPECT_EQ(problemOf(codecs, sample.bytes), "") << sample.name;
        codecs.setLimits({.pixels = pixels - 1, .bytes = 1'000'000});
        EXPECT_THAT(problemOf(codecs, sample.bytes),
                    testing::HasSubstr(std::to_string(whole.width) + " x " + std::to_string(whole.height) +
                                       " pixels are above the limit of " + std::to_string(pixels - 1)))
            << sample.name;
        codecs.setLimits({.pixels = pixels, .bytes = 100});
        EXPECT_NE(problemOf(codecs, sample.bytes), "") << sample.name;
        codecs.setLimits({});
    }
}

TEST(PageCodecs, TellsWhatIsNoPicture) {
    const auto problem = [](const char* text) {
        const std::string_view view = text;
        return problemOf(PageCodecs(), std::span(reinterpret_cast<const uint8_t*>(view.data()), view.size()));
    };
    EXPECT_EQ(problem(""), "The page is empty.");
    EXPECT_EQ(problem("<html>no"),
              "The page is no picture of a known format: it begins with 3C 68 74 6D 6C 3E 6E 6F.");
    EXPECT_EQ(problem("B"), "The page is no picture of a known format: it begins with 42.");
    EXPECT_NE(problem("BM"), "");
    EXPECT_NE(problem("GIF89a"), "");
}

} // namespace
} // namespace pixmo
