#include "tests/behaviour/facetest.h"

namespace pixmo::behaviour {
namespace {

using testing::ElementsAre;

constexpr int CtrlAltShift = with::Ctrl + with::Alt + with::Shift;
constexpr int CtrlShift = with::Ctrl + with::Shift;

class KeyboardTest : public FaceTest {
protected:
    /// With room to scroll in both directions, away from all ends.
    void openZoomed() {
        open(2);
        for (int step = 0; step < 12; ++step)
            face->command("ZOOMIN");
        face->press(key::Up, with::Shift);
        face->press(key::Left, with::Shift);
        for (int step = 0; step < 4; ++step) {
            face->press(key::Down);
            face->press(key::Right);
        }
        ASSERT_EQ(place(), std::make_pair(120, 120));
    }
    std::pair<int32_t, int32_t> place() {
        return {face->scroll(true).position, face->scroll(false).position};
    }
    /// Without those of Shift, Ctrl and Alt themselves.
    std::vector<std::string> keys(const std::vector<std::string>& names) {
        auto lines = events(names);
        std::erase_if(lines, [](const std::string& line) {
            return line.find(" 16 ") != std::string::npos || line.find(" 17 ") != std::string::npos ||
                   line.find(" 18 ") != std::string::npos;
        });
        return lines;
    }
};

TEST_F(KeyboardTest, ArrowsScroll) {
    openZoomed();
    const int32_t endX = face->scroll(true).maximum;
    const int32_t endY = face->scroll(false).maximum;
    ASSERT_GT(endX, 200);
    ASSERT_GT(endY, 200);
    struct Case {
        int key;
        int modifiers;
        std::pair<int32_t, int32_t> place;
    };
    for (const Case& each :
         {Case{key::Down, 0, {120, 150}}, Case{key::Up, with::Ctrl, {120, 120}},
          Case{key::Right, 0, {150, 120}}, Case{key::Left, with::Ctrl, {120, 120}},
          Case{key::Up, CtrlShift, {120, 120}}, Case{key::Down, CtrlAltShift, {120, 120}},
          Case{key::Down, with::Shift, {120, endY}}, Case{key::Right, with::Shift, {endX, endY}},
          Case{key::Down, 0, {endX, endY}}, Case{key::Up, with::Shift, {endX, 0}},
          Case{key::Left, with::Shift, {0, 0}}, Case{key::Up, 0, {0, 0}}}) {
        face->press(each.key, each.modifiers);
        EXPECT_EQ(place(), each.place) << each.key << " with " << each.modifiers;
    }
}

TEST_F(KeyboardTest, PageKeysTurnPages) {
    open(2);
    face->takeEvents();
    struct Case {
        int key;
        int modifiers;
        int16_t page;
    };
    for (const Case& each :
         {Case{key::PageDown, 0, 3}, Case{key::PageUp, with::Ctrl, 2}, Case{key::PageDown, CtrlShift, 2},
          Case{key::PageDown, with::Shift, 2}, Case{key::End, 0, 12}, Case{key::PageDown, 0, 12},
          Case{key::Home, with::Shift, 12}, Case{key::Home, 0, 1}, Case{key::PageUp, 0, 1},
          Case{key::End, with::Ctrl, 12}}) {
        face->press(each.key, each.modifiers);
        EXPECT_TRUE(waitForPage(each.page)) << each.key << " with " << each.modifiers << ": page " << page();
    }
    EXPECT_THAT(events({"PageChanged"}),
                ElementsAre("PageChanged 1001 3", "PageChanged 1001 2", "PageChanged 1001 12",
                            "PageChanged 1001 1", "PageChanged 1001 12"));
}

TEST_F(KeyboardTest, CommandsOfCtrlAndShift) {
    open(1);
    const int wide = zoom();
    face->press('H', CtrlShift);
    EXPECT_LT(zoom(), wide);
    EXPECT_EQ(face->scroll(false).maximum, 0);
    face->press('W', CtrlShift);
    EXPECT_EQ(zoom(), wide);
    const Picture gray = face->picture();
    face->press('G', CtrlShift);
    EXPECT_LT(grayShare(face->picture()), grayShare(gray) / 10);
    face->press('G', CtrlShift);
    EXPECT_EQ(face->picture(), gray);
    for (const char letter : {'H', 'W', 'G'}) {
        face->press(letter);
        face->press(letter, with::Ctrl);
    }
    EXPECT_EQ(face->picture(), gray) << "with other modifiers they mean nothing";
    face->press('P', CtrlShift);
    expectDialog("dlgPrint");
    face->press(key::Escape);
    expectNoDialog();
}

TEST_F(KeyboardTest, DebuggingIsSwitchedOnAndOff) {
    for (const auto& [modifiers, keys] :
         {std::pair{CtrlAltShift, "Ctl+Alt+Shft+T"}, std::pair{with::Shift, "Shift+T"}}) {
        EXPECT_FALSE(face->debugPane());
        face->press('D', modifiers);
        expectBox(std::string("Debugging turned on.\n") + keys + " to view log.", "OK");
        ASSERT_TRUE(face->debugPane());
        EXPECT_THAT(*face->debugPane(),
                    testing::HasSubstr("UserControl_KeyDown 68 " + std::to_string(modifiers)));
        face->press('C', modifiers);
        EXPECT_THAT(face->debugPane(), testing::Optional(testing::Not(testing::HasSubstr("Fired."))));
        face->press('T', modifiers);
        expectDialog("dlgLog");
        face->press(key::Escape);
        expectNoDialog();
        face->press('D', modifiers);
        expectBox(std::string("Debugging turned off.\n") + keys + " to view log.", "OK");
    }
    EXPECT_FALSE(face->debugPane());
    face->press('D');
    face->press('D', with::Ctrl);
    EXPECT_FALSE(face->debugPane());
}

TEST_F(KeyboardTest, TheHostHearsOfEveryKey) {
    open(1);
    face->takeEvents();
    face->press('A', with::Shift);
    EXPECT_THAT(keys({"KeyDown", "KeyPress", "KeyUp"}),
                ElementsAre("KeyDown 65 1", "KeyPress 65", "KeyUp 65 1"));
    face->press(key::PageDown);
    ASSERT_TRUE(waitForPage(2));
    EXPECT_THAT(keys({"KeyDown", "KeyPress", "KeyUp", "PageChanged"}),
                ElementsAre("KeyDown 34 0", "KeyUp 34 0", "PageChanged 1001 2"));
    face->answerEvents({.takesKeys = true});
    face->press('A');
    EXPECT_THAT(keys({"KeyDown", "KeyPress"}), ElementsAre("KeyDown 65 0")) << "it took the key's character";
    face->press(key::PageDown);
    EXPECT_TRUE(waitForPage(3)) << "the control had the key before";
}

TEST_F(KeyboardTest, KeysWithoutMeaningAreLeftToTheHost) {
    open(1);
    face->takeEvents();
    struct Case {
        int key;
        int modifiers;
        bool left;
    };
    for (const Case& each :
         {Case{'A', 0, true}, Case{'D', with::Ctrl, true}, Case{'G', with::Ctrl, true},
          Case{key::F5, 0, true}, Case{key::Escape, 0, true}, Case{key::Enter, 0, true},
          Case{key::Up, CtrlShift, true}, Case{key::PageUp, with::Shift, true}, Case{key::Down, 0, false},
          Case{key::End, 0, false}, Case{'W', CtrlShift, false}}) {
        face->press(each.key, each.modifiers);
        const std::string line = std::to_string(each.key) + " " + std::to_string(each.modifiers);
        EXPECT_THAT(keys({"HostKey"}),
                    each.left ? std::vector<std::string>{"HostKey " + line} : std::vector<std::string>())
            << line;
    }
    EXPECT_TRUE(waitForPage(12));
}

TEST_F(KeyboardTest, KeysInTheDebugPaneAreTheControls) {
    open(1);
    face->press('D', with::Shift);
    expectBox("Debugging turned on.", "OK");
    face->press(key::Tab);
    expectFocus("txtDebug");
    face->press(key::PageDown);
    EXPECT_TRUE(waitForPage(2));
    face->press('C', with::Shift);
    EXPECT_THAT(face->debugPane(), testing::Optional(testing::Not(testing::HasSubstr("Fired."))));
    face->press('D', with::Shift);
    expectBox("Debugging turned off.", "OK");
    expectFocus("lvrImage");
}

TEST_F(KeyboardTest, TabGoesThroughTheControlToTheHost) {
    open(1);
    face->press(key::Tab);
    expectFocus("behind");
    face->press(key::Tab, with::Shift);
    expectFocus("lvrImage");
    face->press(key::Tab, with::Shift);
    expectFocus("before");
    face->press(key::Tab);
    expectFocus("lvrImage");
}

TEST_F(KeyboardTest, TheReadOutHandsTheFocusToThePage) {
    open(1);
    face->clickHostField("before");
    expectFocus("before");
    face->type("7");
    EXPECT_EQ(page(), 1) << "the host's keys are the host's";
    face->clickReadOut();
    expectFocus("lvrImage");
    face->type("7");
    EXPECT_EQ(face->readOut(), "Page 1 of 12") << "it is never edited";
    face->clickHostField("behind");
    face->click(50, 50);
    expectFocus("lvrImage");
}

} // namespace
} // namespace pixmo::behaviour
