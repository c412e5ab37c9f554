#include "tests/behaviour/facetest.h"

#include <cctype>
#include <set>

namespace pixmo::behaviour {
namespace {

class MenuTest : public FaceTest {
protected:
    /// One line an entry: text, "-" for a separator; "*" checked, "?" disabled.
    std::string look(Menu which) {
        std::string text;
        for (const ShownEntry& entry : openMenu(which))
            text += entry.separator
                        ? "-\n"
                        : entry.text + (entry.checked ? "*" : "") + (entry.enabled ? "\n" : "?\n");
        closeMenu();
        return text;
    }
};

TEST_F(MenuTest, ThePagesMenuInEachState) {
    EXPECT_EQ(look(Menu::Page),
              "&Pan*?\n&Zoom to Selection?\n-\nFit &Best?\nFit &Height?\nFit &Width?\nGra&yscale*\n-\n"
              "&Copy?\n&Save Page As\u2026?\nP&rint\u2026?\n-\nIma&ge Information\u2026\n&About\u2026\n");
    open(1);
    choose(Menu::Page, "&Zoom to Selection");
    choose(Menu::Page, "Gra&yscale");
    EXPECT_TRUE(button("SELECTION").pressed) << "the toolbar shows the mode";
    EXPECT_FALSE(button("PAN").pressed);
    EXPECT_EQ(look(Menu::Page),
              "&Pan\n&Zoom to Selection*\n-\nFit &Best\nFit &Height\nFit &Width\nGra&yscale\n-\n"
              "&Copy\n&Save Page As\u2026\nP&rint\u2026\n-\nIma&ge Information\u2026\n&About\u2026\n");
    choose(Menu::Page, "&Pan");
    EXPECT_TRUE(button("PAN").pressed);
    face->press('D', with::Shift);
    expectBox("Debugging turned on.", "OK");
    EXPECT_THAT(look(Menu::Page), testing::EndsWith("&About\u2026\nView &Log\u2026\n")) << "while debugging";
}

TEST_F(MenuTest, TheToolbarsMenuChangesItsButtons) {
    EXPECT_EQ(look(Menu::Toolbar), "Button &Captions\n-\n&Large Buttons*\n&Small Buttons\n");
    const int32_t large = button("PAN").imageSize;
    EXPECT_EQ(button("PAN").caption, "");
    choose(Menu::Toolbar, "&Small Buttons");
    EXPECT_LT(button("PAN").imageSize, large);
    EXPECT_EQ(look(Menu::Toolbar), "Button &Captions\n-\n&Large Buttons\n&Small Buttons*\n");
    choose(Menu::Toolbar, "&Small Buttons");
    EXPECT_EQ(look(Menu::Toolbar), "Button &Captions\n-\n&Large Buttons\n&Small Buttons*\n") << "again";
    const Picture before = face->picture();
    choose(Menu::Toolbar, "Button &Captions");
    EXPECT_EQ(button("SELECTION").caption, "Zoom");
    EXPECT_LT(face->picture().height, before.height) << "the page makes room";
    choose(Menu::Toolbar, "&Large Buttons");
    choose(Menu::Toolbar, "Button &Captions");
    EXPECT_EQ(button("PAN").imageSize, large);
    EXPECT_EQ(look(Menu::Toolbar), "Button &Captions\n-\n&Large Buttons*\n&Small Buttons\n");
}

TEST_F(MenuTest, MnemonicsAreOfOneEntryOnly) {
    for (const Menu which : {Menu::Toolbar, Menu::Page}) {
        std::set<int> used;
        for (const ShownEntry& entry : openMenu(which)) {
            if (entry.separator)
                continue;
            const size_t mark = entry.text.find('&');
            ASSERT_NE(mark, std::string::npos) << entry.text;
            EXPECT_TRUE(used.insert(std::tolower(entry.text[mark + 1])).second) << entry.text;
        }
        closeMenu();
    }
}

TEST_F(MenuTest, TellTheKeysThatDoTheSame) {
    std::string keys;
    for (const ShownEntry& entry : openMenu(Menu::Page))
        keys += entry.keys.empty() ? "" : entry.text + " " + entry.keys + "\n";
    closeMenu();
    EXPECT_EQ(keys, "Fit &Height Ctrl+Shift+H\nFit &Width Ctrl+Shift+W\nGra&yscale Ctrl+Shift+G\n"
                    "&Copy Ctrl+C\n&Save Page As\u2026 Ctrl+S\nP&rint\u2026 Ctrl+Shift+P\n");
}

TEST_F(MenuTest, FitsByTheMenu) {
    open(1);
    EXPECT_FALSE(face->scroll(true).visible);
    EXPECT_TRUE(face->scroll(false).visible) << "fitted to the width at first";
    const int wide = zoom();
    choose(Menu::Page, "Fit &Best");
    EXPECT_FALSE(face->scroll(false).visible);
    EXPECT_LT(zoom(), wide);
    choose(Menu::Page, "Fit &Width");
    EXPECT_EQ(zoom(), wide);
    choose(Menu::Page, "Fit &Height");
    EXPECT_FALSE(face->scroll(false).visible);
    EXPECT_EQ(face->scroll(false).maximum, 0);
}

TEST_F(MenuTest, ADisabledEntryIsNotChosen) {
    openMenu(Menu::Page);
    face->choose("P&rint\u2026");
    closeMenu();
    EXPECT_EQ(face->dialog(), "");
}

TEST_F(MenuTest, TheMnemonicChooses) {
    openMenu(Menu::Page);
    face->press('Y');
    EXPECT_TRUE(waitFor([this] { return !face->menu(); }));
    EXPECT_THAT(look(Menu::Page), testing::HasSubstr("Gra&yscale\n"));
}

} // namespace
} // namespace pixmo::behaviour
