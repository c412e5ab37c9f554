#include "tests/com/face/facetest.h"

#include <cfloat>
#include <oleacc.h>

namespace pixmo::com {
namespace {

static_assert(FLT_EVAL_METHOD == 0, "the pixels of a page are those of every other face");

using FaceView = FaceTest;

TEST_F(FaceView, RequestsOfScrollBarsAreTheCores) {
    load();
    RasterView& view = control->lvrImage();
    view.setZoom(200);
    view.scrollTo(0, 0);
    struct Case {
        UINT message;
        WORD request;
        int (*moved)(const ScrollBar&);
    };
    for (const Case& c :
         {Case{WM_VSCROLL, SB_PAGEDOWN, [](const ScrollBar& b) { return b.pageStep; }},
          Case{WM_VSCROLL, SB_LINEUP, [](const ScrollBar& b) { return -b.lineStep; }},
          Case{WM_HSCROLL, SB_LINEDOWN, [](const ScrollBar& b) { return b.lineStep; }},
          Case{WM_HSCROLL, SB_TOP, [](const ScrollBar& b) { return -b.position; }},
          Case{WM_VSCROLL, SB_BOTTOM, [](const ScrollBar& b) { return b.maximum - b.position; }}}) {
        const auto bar = [&] { return c.message == WM_VSCROLL ? view.verticalBar() : view.horizontalBar(); };
        const ScrollBar before = bar();
        SendMessageW(page(), c.message, c.request, 0);
        EXPECT_EQ(bar().position, before.position + c.moved(before));
        SCROLLINFO info{};
        info.cbSize = sizeof info;
        info.fMask = SIF_ALL;
        GetScrollInfo(page(), c.message == WM_VSCROLL ? SB_VERT : SB_HORZ, &info);
        EXPECT_EQ(info.nPos, bar().position);
        EXPECT_EQ(info.nMax - static_cast<int>(info.nPage) + 1, bar().maximum);
        EXPECT_EQ(static_cast<int>(info.nPage), bar().pageStep);
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
