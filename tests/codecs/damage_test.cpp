#include "codecs/pagecodecs.h"
#include "core/base/error.h"
#include "tests/codecs/samplebmp.h"
#include "tests/codecs/samplegif.h"
#include "tests/codecs/samplejpeg.h"
#include "tests/codecs/samplepng.h"
#include "tests/codecs/sampletiff.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>

namespace pixmo {
namespace {

struct Sample {
    std::string name;
    std::vector<uint8_t> bytes;
    uint64_t width;
    uint64_t height;
};

Sample tiffSample(int compression, uint16_t bits, uint16_t samples, uint32_t tile) {
    TiffSpec spec;
    spec.compression = static_cast<uint16_t>(compression);
    spec.bits = bits;
    spec.samples = samples;
    spec.photometric = samples == 3 ? PHOTOMETRIC_RGB : PHOTOMETRIC_MINISBLACK;
    spec.tile = tile;
    spec.rowsPerStrip = 16;
    return {"tiff " + std::to_string(compression), makeTiff(spec), spec.width, spec.height};
}

Sample jpegSample(const char* name, JpegSpec::Colours colours, bool progressive, bool arithmetic) {
    JpegSpec spec;
    spec.colours = colours;
    spec.progressive = progressive;
    spec.arithmetic = arithmetic;
    return {name, makeJpeg(spec), spec.width, spec.height};
}

Sample pngSample(int colourType, int depth, bool interlaced) {
    PngSpec spec;
    spec.colourType = colourType;
    spec.depth = depth;
    spec.interlaced = interlaced;
    return {"png " + std::to_string(colourType), makePng(spec), spec.width, spec.height};
}

std::vector<Sample> samples() {
    const GifSpec gif;
    BmpSpec runs;
    runs.bits = 8;
    runs.compression = 1;
    std::vector<uint8_t> runData;
    for (uint32_t y = 0; y < runs.height; ++y)
        runData.insert(runData.end(), {30, static_cast<uint8_t>(y), 0, 5, 1, 2, 3, 4, 5, 0, 0, 0});
    BmpSpec plain;
    plain.bits = 24;
    return {tiffSample(COMPRESSION_NONE, 8, 3, 0),
            tiffSample(COMPRESSION_PACKBITS, 1, 1, 0),
            tiffSample(COMPRESSION_LZW, 8, 3, 16),
            tiffSample(COMPRESSION_ADOBE_DEFLATE, 8, 1, 0),
            tiffSample(COMPRESSION_CCITTRLE, 1, 1, 0),
            tiffSample(COMPRESSION_CCITTFAX3, 1, 1, 0),
            tiffSample(COMPRESSION_CCITTFAX4, 1, 1, 16),
            tiffSample(COMPRESSION_JPEG, 8, 3, 0),
            jpegSample("jpeg baseline", JpegSpec::Colours::YCbCr, false, false),
            jpegSample("jpeg progressive", JpegSpec::Colours::Gray, true, false),
            jpegSample("jpeg arithmetic", JpegSpec::Colours::Cmyk, false, true),
            pngSample(PNG_COLOR_TYPE_GRAY, 1, false),
            pngSample(PNG_COLOR_TYPE_PALETTE, 4, true),
            pngSample(PNG_COLOR_TYPE_RGBA, 16, false),
            {"gif", makeGif(gif), 39, 27},
            {"bmp runs", wrapBmp(runs, runData), runs.width, runs.height},
            {"bmp plain", makeBmp(plain), plain.width, plain.height}};
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
    const Sample sample = pngSample(PNG_COLOR_TYPE_RGB, 8, false);
    for (size_t at = 8; at < sample.bytes.size(); at += 7) {
        auto bytes = sample.bytes;
        bytes[at] ^= 0x10;
        EXPECT_NE(problemOf(codecs, bytes), "") << "byte " << at;
    }
}

TEST(Limits, OfPixelsAndBytes) {
    PageCodecs codecs;
    for (const Sample& sample : samples()) {
        const uint64_t pixels = sample.width * sample.height;
        codecs.setLimits({.pixels = pixels, .bytes = 1'000'000});
        EXPECT_EQ(problemOf(codecs, sample.bytes), "") << sample.name;
        codecs.setLimits({.pixels = pixels - 1, .bytes = 1'000'000});
        EXPECT_THAT(problemOf(codecs, sample.bytes),
                    testing::HasSubstr(std::to_string(sample.width) + " x " + std::to_string(sample.height) +
                                       " pixels are above the limit of " + std::to_string(pixels - 1)))
            << sample.name;
        codecs.setLimits({.pixels = pixels, .bytes = 100});
        EXPECT_NE(problemOf(codecs, sample.bytes), "") << sample.name;
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
