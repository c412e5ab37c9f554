#include "tests/behaviour/facetest.h"

namespace pixmo::behaviour {
namespace {

class SettingsTest : public FaceTest {
protected:
    void again() {
        face->set("LogFileName", std::string());
        face->destroy();
        createControl();
    }
    std::string look() {
        const ShownButton pan = button("PAN");
        bool gray = false;
        for (const ShownEntry& entry : openMenu(Menu::Page))
            gray = gray || (entry.text == "Gra&yscale" && entry.checked);
        closeMenu();
        return std::to_string(pan.imageSize) + " '" + pan.caption + (gray ? "' gray" : "'");
    }
};

TEST_F(SettingsTest, OutliveTheControl) {
    const std::string first = look();
    EXPECT_THAT(first, testing::EndsWith(" '' gray"));
    choose(Menu::Toolbar, "&Small Buttons");
    again();
    const std::string small = look();
    EXPECT_NE(small, first);
    EXPECT_THAT(small, testing::EndsWith(" '' gray"));
    choose(Menu::Toolbar, "Button &Captions");
    again();
    EXPECT_THAT(look(), testing::EndsWith(" 'Pan' gray"));
    face->press('G', with::Ctrl + with::Shift);
    again();
    EXPECT_THAT(look(), testing::EndsWith(" 'Pan'"));
    open(1);
    EXPECT_LT(grayShare(face->picture()), 3) << "the picture follows";
    face->press('G', with::Ctrl + with::Shift);
    choose(Menu::Toolbar, "Button &Captions");
    choose(Menu::Toolbar, "&Large Buttons");
    again();
    EXPECT_EQ(look(), first);
}

} // namespace
} // namespace pixmo::behaviour
