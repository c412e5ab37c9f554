#include "apps/engine/answerbuilder.h"
#include "tests/engine/samplefolder.h"
#include "tests/engine/viewer.h"

#include <gtest/gtest.h>

namespace pixmo {
namespace {

EngineRequest request(const std::string& delimiter) {
    EngineRequest request;
    request.delimiter = delimiter;
    request.key = "OrrelKeyset qFlow";
    return request;
}

TEST(AnswerBuilder, TextsAreTheHexadecimalOfTheCipher) {
    const AnswerBuilder builder(1640);
    const std::vector<Property> properties = {{"EncBytes", "-1"}};
    EXPECT_EQ(builder.body(AnswerBuilder::contact(request("|"), properties)),
              "7CEEEEF9AE95AA5ED0270858566901180F5E4F3FAEDC11");
    EXPECT_EQ(builder.body(AnswerBuilder::pageCount(request("|"), 12, {})), "65EEEEF9AE95D83C");
    EXPECT_EQ(builder.body(AnswerBuilder::pageCount(request("\u00B7"), 12, {})), "65EE25F9AE5ED83C");
    EXPECT_EQ(builder.body(AnswerBuilder::pageCount(request("|"), 40000, {})), "65EEEEF9AE95DA3CC05451");
    EXPECT_EQ(builder.body(AnswerBuilder::error(request("|"), engine_error::NoDocument)),
              "70FFEE84D5DDDB72B20C01527A750939131A0775E683425E9BE2AF19804D66FA0D0F");
    EXPECT_EQ(AnswerBuilder::pageCount(request("|"), 3, properties).text, "PC|OK|3|CP'EncBytes'='-1'");
}

TEST(PageProtection, APageNeverLooksLikeATextAndComesBackWhole) {
    for (const size_t size : {1UL, 1000UL, 1640UL, 3071UL, 3072UL, 3073UL, 20000UL})
        for (const int32_t count : {-1, 0, 1, 1640, 3000, 1'000'000}) {
            const auto file = sampleBytes(size);
            const std::string body = AnswerBuilder(count).body(AnswerBuilder::page(file));
            EXPECT_EQ(body.size(), std::max<size_t>(size, 3072));
            auto page = restored(body, static_cast<size_t>(count));
            const std::vector<uint8_t> padding(page.begin() + static_cast<std::ptrdiff_t>(size), page.end());
            EXPECT_EQ(padding, std::vector<uint8_t>(padding.size()));
            page.resize(size);
            EXPECT_EQ(page, file) << size << " bytes, " << count;
        }
}

} // namespace
} // namespace pixmo
