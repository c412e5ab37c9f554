#include "tests/com/face/facetest.h"

#include <cfloat>
#include <oleacc.h>

namespace pixmo::com {
namespace {

static_assert(FLT_EVAL_METHOD == 0, "the pixels of a page are those of every other face");

class FaceView : public FaceTest {
protected:
    SCROLLINFO bar(int which) const {
        SCROLLINFO info{};
        info.cbSize = sizeof info;
        info.fMask = SIF_ALL;
        GetScrollInfo(page(), which, &info);
        return info;
    }
    bool hasBar(LONG_PTR style) const { return (GetWindowLongPtrW(page(), GWL_STYLE) & style) != 0; }
};

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

TEST_F(FaceView, IsNoMoreOnceItsWindowHasEnded) {
    load(2);
    IAccessible* accessible = nullptr;
    ASSERT_EQ(AccessibleObjectFromWindow(page(), static_cast<DWORD>(OBJID_CLIENT), IID_IAccessible,
                                         reinterpret_cast<void**>(&accessible)),
              S_OK);
    VARIANT self{};
    self.vt = VT_I4;
    BSTR name = nullptr;
    EXPECT_EQ(accessible->get_accName(self, &name), S_OK);
    SysFreeString(name);
    VARIANT role{};
    EXPECT_EQ(accessible->get_accRole(self, &role), S_OK);
    EXPECT_EQ(role.lVal, ROLE_SYSTEM_GRAPHIC);
    host->face().destroyWindow();
    EXPECT_NE(accessible->get_accName(self, &name), S_OK);
    accessible->Release();
}

} // namespace
} // namespace pixmo::com
