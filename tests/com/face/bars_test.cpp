#include "faces/com/base/widetext.h"
#include "tests/com/face/facetest.h"

#include <commctrl.h>

namespace pixmo::com {
namespace {

class FaceBars : public FaceTest {
protected:
    std::vector<std::string> fields() const {
        std::vector<std::string> texts;
        for (HWND field = part(L"Static"); field;
             field = FindWindowExW(host->face().window(), field, L"Static", nullptr))
            texts.push_back(toUtf8(user::textOf(field)));
        return texts;
    }
    LONG height(HWND window) const {
        RECT place{};
        GetWindowRect(window, &place);
        return place.bottom - place.top;
    }
    int imageWidth() const {
        int width = 0;
        int images = 0;
        ImageList_GetIconSize(reinterpret_cast<HIMAGELIST>(SendMessageW(toolbar(), TB_GETIMAGELIST, 0, 0)),
                              &width, &images);
        return width;
    }
};

TEST_F(FaceBars, AButtonMayGoWhileItIsClicked) {
    load();
    control->setProperty("BookmarkAvailable", true);
    int bookmarks = 0;
    control->events().BookmarkRequested.connect([&](int32_t, int32_t) {
        ++bookmarks;
        control->setProperty("BookmarkAvailable", false);
    });
    act([&] { user::click(buttonPlace("STAR")); });
    EXPECT_EQ(bookmarks, 1);
    EXPECT_EQ(static_cast<size_t>(SendMessageW(toolbar(), TB_BUTTONCOUNT, 0, 0)),
              control->tlbImage().Buttons.size());
}

TEST_F(FaceBars, SizesCaptionsAndRows) {
    load();
    EXPECT_EQ(imageWidth(), 32);
    const LONG plain = height(toolbar());
    control->runCommand("BUTTONCAPTIONS");
    EXPECT_GT(height(toolbar()), plain);
    control->runCommand("SMALLBUTTONS");
    EXPECT_EQ(imageWidth(), 16);
    control->runCommand("BUTTONCAPTIONS");
    EXPECT_LT(height(toolbar()), plain);
    const LONG oneRow = height(toolbar());
    host->resizeInside({180, 400});
    EXPECT_GT(height(toolbar()), oneRow) << "what does not fit comes into another row";
    RECT bar{};
    RECT view{};
    GetWindowRect(toolbar(), &bar);
    GetWindowRect(page(), &view);
    EXPECT_EQ(view.top, bar.bottom);
}

TEST_F(FaceBars, TheStatusRowReadsOut) {
    EXPECT_EQ(fields(), (std::vector<std::string>{"Page 0 of 0", "", ""}));
    load(3);
    EXPECT_EQ(fields(), (std::vector<std::string>{"Page 3 of 12", "", control->zoomText()}));
    control->runCommand("ZOOMIN");
    EXPECT_EQ(fields().back(), control->zoomText());
    control->LoadDocumentByDocID(sample::ManyPages, 7);
    ASSERT_FALSE(control->isIdle());
    EXPECT_EQ(fields().at(1), "Loading\u2026");
    settle();
    EXPECT_EQ(fields().at(1), "");
}

TEST_F(FaceBars, TheHostsLookIsTaken) {
    load();
    control->setProperty("BackColor", Colour{0x00204060});
    control->setProperty("BorderStyle", int16_t{1});
    EXPECT_EQ(control->lvrImage().background() & 0xFFFFFFU, 0x604020U);
    SIZE size{};
    const auto shown = pixels(host->face().window(), size);
    const auto at = [&](LONG x, LONG y) { return shown[static_cast<size_t>(y * size.cx + x)]; };
    EXPECT_EQ(at(size.cx - 3, 3), 0x604020U) << "beside the buttons";
    EXPECT_NE(at(0, size.cy / 2), 0x604020U) << "the border";
    Font large;
    large.Name = "Tahoma";
    large.Size = 20;
    const LONG before = height(part(L"Static"));
    control->setProperty("Font", large);
    EXPECT_GT(height(part(L"Static")), before);
    control->setProperty("Enabled", false);
    EXPECT_FALSE(IsWindowEnabled(host->face().window()));
    EXPECT_TRUE(std::ranges::find(host->changes, "BackColor") != host->changes.end());
}

} // namespace
} // namespace pixmo::com
