#include "core/thumbs/thumbpictures.h"

#include <gtest/gtest.h>

namespace pixmo {
namespace {

constexpr int32_t Side = 1024; ///< 16 pictures of this size fill the budget

ThumbPicture square() {
    return {{Side, Side}, std::vector<uint32_t>(size_t{Side} * Side)};
}

TEST(ThumbPictures, WhatWasNotLookedAtForLongestGoes) {
    ThumbPictures pictures;
    for (int32_t item = 0; item < 16; ++item)
        pictures.setPicture(item, square());
    EXPECT_EQ(pictures.pixelCount(), ThumbPictures::PixelBudget);
    ASSERT_NE(pictures.picture(0), nullptr);
    pictures.setPicture(16, square());
    pictures.setPicture(17, square());
    EXPECT_EQ(pictures.pixelCount(), ThumbPictures::PixelBudget);
    EXPECT_EQ(pictures.state(0), ThumbState::Shown);
    EXPECT_EQ(pictures.state(1), ThumbState::Empty);
    EXPECT_EQ(pictures.state(2), ThumbState::Empty);
    EXPECT_EQ(pictures.state(3), ThumbState::Shown);
}

// Else a window larger than the budget would load for ever.
TEST(ThumbPictures, WhatIsSeenStays) {
    ThumbPictures pictures;
    for (int32_t item = 0; item < 40; ++item)
        pictures.setPicture(item, square(), 10, 40);
    for (int32_t item = 0; item < 40; ++item)
        EXPECT_EQ(pictures.state(item), item < 10 ? ThumbState::Empty : ThumbState::Shown) << item;
}

TEST(ThumbPictures, CountsEveryChange) {
    ThumbPictures pictures;
    pictures.setPicture(1, square());
    pictures.setPicture(1, {{2, 3}, std::vector<uint32_t>(6)});
    EXPECT_EQ(pictures.pixelCount(), 6U);
    pictures.outdatePictures();
    EXPECT_TRUE(pictures.isWanted(1));
    pictures.setLoading(1);
    EXPECT_FALSE(pictures.isWanted(1));
    EXPECT_NE(pictures.picture(1), nullptr);
    pictures.setFailed(1, "lost");
    EXPECT_EQ(pictures.picture(1), nullptr);
    EXPECT_EQ(pictures.reason(1), "lost");
    EXPECT_EQ(pictures.pixelCount(), 0U);
    pictures.setPicture(1, square());
    EXPECT_FALSE(pictures.isWanted(1));
    EXPECT_EQ(pictures.reason(1), "");
    pictures.setEmpty(1);
    EXPECT_EQ(pictures.pixelCount(), 0U);
}

} // namespace
} // namespace pixmo
