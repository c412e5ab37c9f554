#include "core/imaging/viewcomposer.h"
#include "tests/com/face/facetest.h"

#include <algorithm>
#include <cfloat>
#include <cmath>
#include <oleacc.h>

namespace pixmo::com {
namespace {

static_assert(FLT_EVAL_METHOD == 0, "the pixels of a page are those of every other face");

class FaceView : public FaceTest {
protected:
    /// The pixels that the core composes for such a view, without the frame of the focus.
    std::vector<uint32_t> composed(SIZE size) const {
        RasterView& view = control->lvrImage();
        std::vector<uint32_t> expected(static_cast<size_t>(size.cx) * static_cast<size_t>(size.cy));
        ViewComposer().compose({expected.data(), size.cx, size.cy, static_cast<size_t>(size.cx)},
                               &view.raster(), view.geometry().destination(),
                               {view.GrayScale() ? BilevelLook::ScaleToGray : BilevelLook::TwoColours,
                                0xFF000000 | view.background()});
        for (uint32_t& pixel : expected)
            pixel &= 0xFFFFFFU;
        return expected;
    }
    SCROLLINFO bar(int which) const {
        SCROLLINFO info{};
        info.cbSize = sizeof info;
        info.fMask = SIF_ALL;
        GetScrollInfo(page(), which, &info);
        return info;
    }
    bool hasBar(LONG_PTR style) const { return (GetWindowLongPtrW(page(), GWL_STYLE) & style) != 0; }
};

TEST_F(FaceView, ShowsWhatTheCoreComposes) {
    load();
    SetFocus(host->handle());
    SetFocus(nullptr);
    for (const char* command : {"FITWIDTH", "ZOOMIN", "ROTR", "FITBEST"}) {
        SCOPED_TRACE(command);
        control->runCommand(command);
        settle();
        SIZE size{};
        const auto shown = pixels(page(), size);
        EXPECT_EQ(Size({size.cx, size.cy}), control->lvrImage().geometry().viewport());
        EXPECT_TRUE(shown == composed(size));
        EXPECT_GT(std::ranges::count(shown, 0U), 0) << "a page has ink";
    }
}

TEST_F(FaceView, AFrameTellsWhereTheKeyboardIs) {
    load();
    SIZE size{};
    const uint32_t highlight =
        0xFFFFFF & (GetRValue(GetSysColor(COLOR_HIGHLIGHT)) << 16 |
                    GetGValue(GetSysColor(COLOR_HIGHLIGHT)) << 8 | GetBValue(GetSysColor(COLOR_HIGHLIGHT)));
    host->face().takeFocus();
    EXPECT_EQ(GetFocus(), page());
    EXPECT_EQ(pixels(page(), size).front(), highlight);
    EXPECT_EQ(pixels(page(), size).back(), highlight);
    SetFocus(nullptr);
    EXPECT_TRUE(pixels(page(), size) == composed(size));
}

TEST_F(FaceView, ScrollBarsAreTheCores) {
    load();
    control->runCommand("FITBEST");
    EXPECT_FALSE(hasBar(WS_VSCROLL));
    control->runCommand("FITWIDTH");
    EXPECT_TRUE(hasBar(WS_VSCROLL));
    EXPECT_FALSE(hasBar(WS_HSCROLL));
    control->lvrImage().setZoom(200);
    EXPECT_TRUE(hasBar(WS_HSCROLL));
    const RasterView& view = control->lvrImage();
    const auto expectBars = [&] {
        for (const auto& [which, source] :
             {std::pair(SB_HORZ, view.horizontalBar()), std::pair(SB_VERT, view.verticalBar())}) {
            const SCROLLINFO info = bar(which);
            EXPECT_EQ(info.nPos, source.position);
            EXPECT_EQ(info.nMax - static_cast<int>(info.nPage) + 1, source.maximum);
            EXPECT_EQ(static_cast<int>(info.nPage), source.pageStep);
        }
    };
    struct Case {
        UINT message;
        WORD request;
        int (*moved)(const ScrollBar&);
    };
    control->lvrImage().scrollTo(0, 0);
    for (const Case& c :
         {Case{WM_VSCROLL, SB_PAGEDOWN, [](const ScrollBar& b) { return b.pageStep; }},
          Case{WM_VSCROLL, SB_LINEUP, [](const ScrollBar& b) { return -b.lineStep; }},
          Case{WM_HSCROLL, SB_LINEDOWN, [](const ScrollBar& b) { return b.lineStep; }},
          Case{WM_HSCROLL, SB_TOP, [](const ScrollBar& b) { return -b.position; }},
          Case{WM_VSCROLL, SB_BOTTOM, [](const ScrollBar& b) { return b.maximum - b.position; }}}) {
        const bool down = c.message == WM_VSCROLL;
        const ScrollBar before = down ? view.verticalBar() : view.horizontalBar();
        SendMessageW(page(), c.message, c.request, 0);
        EXPECT_EQ((down ? view.verticalBar() : view.horizontalBar()).position,
                  before.position + c.moved(before));
        expectBars();
    }
}

TEST_F(FaceView, TheWheelScrollsAndZoomsAboutThePointer) {
    load();
    const RasterView& view = control->lvrImage();
    control->lvrImage().setZoom(120);
    control->lvrImage().scrollTo(20, 100);
    act([&] {
        user::moveTo(onScreen(200, 150));
        user::wheel(-1);
    });
    const ScrollBar down = view.verticalBar();
    EXPECT_GT(down.position, 100);
    act([] { user::wheel(-1, 1); });
    EXPECT_GT(view.horizontalBar().position, 20);
    EXPECT_EQ(view.verticalBar().position, down.position);
    const RealPoint under = view.geometry().toPicture({200, 150});
    act([] { user::wheel(1, 2); });
    EXPECT_GT(view.zoom(), 120);
    const RealPoint after = view.geometry().toView(under);
    EXPECT_NEAR(after.x, 200, 1);
    EXPECT_NEAR(after.y, 150, 1);
}

TEST_F(FaceView, KeysOfADesignedFormAreNone) {
    load(3);
    host->inUserMode = false;
    act([] { user::press(VK_NEXT); });
    EXPECT_EQ(currentPage(), 3);
}

TEST_F(FaceView, TellsWhatIsNotThere) {
    control->LoadDocumentByDocID(sample::ManyPages, 99);
    settle();
    ASSERT_FALSE(control->isPageDisplayed());
    ASSERT_EQ(boxes.size(), 1U);
    boxes.clear();
    SIZE size{};
    const auto shown = pixels(page(), size);
    const auto at = [&](LONG x, LONG y) { return shown[static_cast<size_t>(y * size.cx + x)]; };
    EXPECT_EQ(at(5, 5), control->lvrImage().background() & 0xFFFFFFU);
    const COLORREF plate = GetSysColor(COLOR_BTNFACE);
    const uint32_t face = GetRValue(plate) << 16 | GetGValue(plate) << 8 | GetBValue(plate);
    EXPECT_GT(std::ranges::count(shown, face), 1000) << "a plate with the text";
}

TEST_F(FaceView, SpeaksToAssistivePrograms) {
    load(2);
    IAccessible* accessible = nullptr;
    ASSERT_EQ(AccessibleObjectFromWindow(page(), static_cast<DWORD>(OBJID_CLIENT), IID_IAccessible,
                                         reinterpret_cast<void**>(&accessible)),
              S_OK);
    VARIANT self{};
    self.vt = VT_I4;
    BSTR name = nullptr;
    EXPECT_EQ(accessible->get_accName(self, &name), S_OK);
    const std::string zoom = std::to_string(std::lround(control->lvrImage().zoom()));
    EXPECT_EQ(std::wstring(name), L"Page 2 of 12, " + std::wstring(zoom.begin(), zoom.end()) + L" %");
    SysFreeString(name);
    VARIANT role{};
    EXPECT_EQ(accessible->get_accRole(self, &role), S_OK);
    EXPECT_EQ(role.lVal, ROLE_SYSTEM_GRAPHIC);
    host->face().destroyWindow();
    EXPECT_NE(accessible->get_accName(self, &name), S_OK) << "the window has ended";
    accessible->Release();
}

} // namespace
} // namespace pixmo::com
