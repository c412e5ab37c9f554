#include "core/control/commandbar.h"
#include "icons/commandicon.h"

#include <gmock/gmock.h>
#include <numeric>

namespace pixmo {

namespace {

/// Part of the square that is covered.
double inkOf(const std::vector<uint8_t>& coverage) {
    return std::accumulate(coverage.begin(), coverage.end(), 0.0) / 255 /
           static_cast<double>(coverage.size());
}

TEST(CommandIcon, EveryButtonHasOneThatLooksTheSameInEverySize) {
    cUtilities utilities;
    CommandBar bar(utilities);
    bar.tlbImage_Init(true, true);
    for (const ToolButton& button : bar.tlbImage().Buttons) {
        SCOPED_TRACE(button.Key);
        EXPECT_EQ(hasCommandIcon(button.Key), button.Style != ButtonStyle::Separator);
        if (button.Style == ButtonStyle::Separator)
            continue;
        const double ink = inkOf(commandIcon(button.Key, 96));
        EXPECT_THAT(ink, testing::AllOf(testing::Gt(0.03), testing::Lt(0.5)));
        for (const int32_t size : {16, 24, 33}) {
            const auto icon = commandIcon(button.Key, size);
            ASSERT_EQ(icon.size(), static_cast<size_t>(size) * static_cast<size_t>(size));
            EXPECT_NEAR(inkOf(icon), ink, 0.01) << size;
        }
    }
}

TEST(CommandIcon, LinesFallOnWholePixelsOfTheirGrid) {
    // The shaft of the double arrow: one line of two pixels across the middle, none above.
    const auto icon = commandIcon("FITWIDTH", 24);
    const auto at = [&icon](size_t x, size_t y) { return icon.at(y * 24 + x); };
    EXPECT_EQ(at(12, 11), 255);
    EXPECT_EQ(at(12, 12), 255);
    EXPECT_EQ(at(12, 9), 0);
    EXPECT_EQ(at(12, 14), 0);
}

TEST(CommandIcon, UnknownKeysAndSizesHaveNone) {
    EXPECT_TRUE(commandIcon("NOSUCH", 24).empty());
    EXPECT_TRUE(commandIcon("PRINT", 0).empty());
    EXPECT_FALSE(hasCommandIcon(""));
}

} // namespace

} // namespace pixmo
