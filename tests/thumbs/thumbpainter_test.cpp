#include "core/thumbs/thumbpainter.h"
#include "tests/thumbs/thumbsfixture.h"

namespace pixmo {
namespace {

constexpr Palette Colours = {0xFAFAFA, 0x101010, 0x70A090, 0x0040FF, 0xFFFF00};

class ThumbPainting : public ThumbsFixture {
protected:
    void paint(double ratio = 1, bool focused = false) {
        width = static_cast<int32_t>(800 * ratio);
        const auto height = static_cast<int32_t>(1000 * ratio);
        pixels.assign(static_cast<size_t>(width) * static_cast<size_t>(height), 0);
        const auto measure = [ratio](const std::string& text, bool, int32_t) {
            return Size{static_cast<int32_t>(7 * ratio) * static_cast<int32_t>(text.size()),
                        static_cast<int32_t>(12 * ratio)};
        };
        texts = ThumbPainter(*thumbs(), {pixels.data(), width, height, static_cast<size_t>(width)},
                             {Colours, ratio, focused}, measure)
                    .paint();
    }
    int64_t count(uint32_t rgb, const Rectangle& place) const {
        int64_t found = 0;
        for (int32_t y = place.top; y < place.bottom(); ++y)
            for (int32_t x = place.left; x < place.right(); ++x)
                found +=
                    pixels[static_cast<size_t>(y) * static_cast<size_t>(width) + static_cast<size_t>(x)] ==
                            (0xFF000000 | rgb)
                        ? 1
                        : 0;
        return found;
    }
    Rectangle cell(int32_t page) const { return thumbs()->grid().cell(page - 1); }
    Rectangle numberOf(int32_t page) const {
        const Rectangle whole = cell(page);
        const int32_t height = ThumbGrid::NumberHeight + ThumbGrid::Margin / 2;
        return {whole.left, whole.bottom() - height, whole.width, height};
    }

    std::vector<uint32_t> pixels;
    std::vector<TextRun> texts;
    int32_t width = 0;
};

TEST_F(ThumbPainting, TellsTheStatesOfPagesApart) {
    open(5, 2);
    tick();
    paint();
    int32_t waiting = 0;
    for (int16_t page = 1; page <= 5; ++page) {
        const bool loads = thumbs()->state(page) == ThumbState::Loading;
        waiting += loads ? 1 : 0;
        EXPECT_EQ(count(Colours.placeholder, cell(page)) > 10, loads) << "three dots on page " << page;
    }
    EXPECT_GT(waiting, 0);
    for (int round = 0; round < 20; ++round) {
        tick();
        for (const int32_t page : {1, 3, 4, 5})
            if (isRequested(page))
                page == 4 ? fail(page, "gone") : finish(page);
    }
    ASSERT_EQ(thumbs()->state(1), ThumbState::Shown);
    ASSERT_EQ(thumbs()->state(4), ThumbState::Failed);
    paint();
    const uint32_t cross = 0xB02A2A;
    EXPECT_EQ(count(cross, cell(1)), 0);
    EXPECT_GT(count(cross, cell(4)), 20);
    EXPECT_GT(count(Colours.highlight, cell(2)), 300) << "a frame around the page on screen";
    EXPECT_EQ(count(Colours.highlight, cell(1)), 0);
    ASSERT_EQ(texts.size(), 5U);
    for (size_t i = 0; i < texts.size(); ++i) {
        EXPECT_EQ(texts[i].text, std::to_string(i + 1));
        EXPECT_EQ(texts[i].bold, i == 1);
        EXPECT_EQ(texts[i].rgb, Colours.text);
    }
    EXPECT_EQ(count(Colours.base, {700, 900, 100, 100}), 10'000) << "nothing is there";
}

TEST_F(ThumbPainting, ShowsSelectionFocusAndBand) {
    open(3, 1);
    loadAll();
    const Rectangle second = cell(2);
    thumbs()->click(second.left + 10, second.top + 10, 0);
    paint(1, false);
    EXPECT_GT(count(Colours.highlight, numberOf(2)), 30) << "behind the number";
    EXPECT_EQ(texts.at(1).rgb, Colours.highlightedText);
    const Rectangle inner = {second.left + 3, second.top + 3, second.width - 6, second.height - 6};
    EXPECT_EQ(count(Colours.base, inner), 0) << "the whole cell is tinted";
    const int64_t unfocused = count(Colours.text, second);
    paint(1, true);
    EXPECT_GT(count(Colours.text, second), unfocused + 50) << "dots along its edges";
    thumbs()->bandStart(600, 700, 0);
    thumbs()->bandMove(700, 800);
    paint();
    EXPECT_NEAR(static_cast<double>(count(Colours.highlight, {600, 700, 100, 100})), 396, 8);
    EXPECT_EQ(count(Colours.base, {610, 710, 80, 80}), 0);
}

TEST_F(ThumbPainting, ScalesWithTheScreen) {
    open(3, 1);
    loadAll();
    paint(1);
    const int64_t before = count(Colours.base, {0, 0, 800, 1000});
    const Rectangle place = texts.front().place;
    paint(2);
    EXPECT_NEAR(static_cast<double>(count(Colours.base, {0, 0, 1600, 2000})),
                4.0 * static_cast<double>(before), 20'000);
    EXPECT_EQ(texts.front().place,
              (Rectangle{2 * place.left, 2 * place.top, 2 * place.width, 2 * place.height}));
}

TEST_F(ThumbPainting, CommandsOfToolbarAndMenus) {
    open(3, 1);
    const auto entry = [&](const char* key) {
        const std::vector<MenuItem> menu = thumbs()->viewMenu();
        return *std::ranges::find(menu, key, &MenuItem::key);
    };
    EXPECT_EQ(entry("SELECTALL").shortcut, "Ctrl+A");
    EXPECT_EQ(thumbs()->toolbar().find("PRINT")->Description, "Print Selection");
    EXPECT_EQ(std::ranges::count(thumbs()->toolbar().Buttons, ButtonStyle::Separator, &ToolButton::Style), 1);
    EXPECT_FALSE(entry("PRINT").enabled) << "nothing is selected";
    thumbs()->setItemSizeFactor(dlgThumbs::LargestFactor);
    EXPECT_FALSE(thumbs()->toolbar().find("LARGER")->Enabled);
    int changes = 0;
    thumbs()->Changed.connect([&] { ++changes; });
    for (const char* key : {"LARGER", "PRINT", "NOSUCH"})
        thumbs()->run(key);
    EXPECT_EQ(changes, 0);
    EXPECT_TRUE(entry("TOOLBAR").checked);
    EXPECT_TRUE(entry("TOOLBAR").checkable && !entry("PRINT").checkable);
    thumbs()->run("TOOLBAR");
    EXPECT_FALSE(entry("TOOLBAR").checked);
}

} // namespace
} // namespace pixmo
