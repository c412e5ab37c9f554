#include "faces/com/base/widetext.h"
#include "tests/com/face/facetest.h"

#include <commctrl.h>

namespace pixmo::com {
namespace {

class FaceBars : public FaceTest {
protected:
    LONG height(HWND window) const {
        RECT place{};
        GetWindowRect(window, &place);
        return place.bottom - place.top;
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

TEST_F(FaceBars, RowsAndZoom) {
    load(3);
    const LONG plain = height(toolbar());
    control->runCommand("BUTTONCAPTIONS");
    EXPECT_GT(height(toolbar()), plain);
    control->runCommand("BUTTONCAPTIONS");
    EXPECT_EQ(height(toolbar()), plain);
    control->runCommand("ZOOMIN");
    const HWND status = FindWindowExW(host->face().window(), part(L"Static"), L"Static", nullptr);
    const HWND zoom = FindWindowExW(host->face().window(), status, L"Static", nullptr);
    EXPECT_EQ(toUtf8(user::textOf(zoom)), control->zoomText());
    host->resizeInside({180, 400});
    EXPECT_GT(height(toolbar()), plain) << "what does not fit comes into another row";
    RECT bar{};
    RECT view{};
    GetWindowRect(toolbar(), &bar);
    GetWindowRect(page(), &view);
    EXPECT_EQ(view.top, bar.bottom);
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
