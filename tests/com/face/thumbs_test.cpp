#include "tests/com/face/facetest.h"

#include <oleacc.h>

namespace pixmo::com {
namespace {

class FaceThumbs : public FaceTest {
protected:
    void open(int16_t page = 1) {
        control->setProperty("ThumbsAvailable", true);
        load(page);
        act([&] { user::click(buttonPlace("THUMBS")); });
        ASSERT_TRUE(pumpUntil(*host, [&] { return thumbs() && thumbs()->state(9) == ThumbState::Shown; }));
    }
    dlgThumbs* thumbs() const { return control->thumbnails().window(); }
    static HWND window() { return user::findWindow(L"Pixmo.ThumbnailWindow"); }
    static HWND list() { return FindWindowExW(window(), nullptr, L"Pixmo.Thumbnails", nullptr); }
    POINT cell(int32_t pageNumber) const {
        const Rectangle place = thumbs()->grid().cell(pageNumber - 1);
        POINT middle = {place.left + place.width / 2, place.top + place.height / 2};
        ClientToScreen(list(), &middle);
        return middle;
    }
    /// The share of dark pixels of a page's cell, thousandths.
    int64_t inkOf(int32_t pageNumber) const {
        SIZE size{};
        const auto shown = pixels(list(), size);
        const Rectangle place = thumbs()->grid().cell(pageNumber - 1);
        int64_t dark = 0;
        for (int32_t y = place.top; y < std::min<int32_t>(place.bottom() - ThumbGrid::NumberHeight, size.cy);
             ++y)
            for (int32_t x = place.left; x < place.right(); ++x)
                dark += (shown[static_cast<size_t>(y * size.cx + x)] & 0xFFU) < 0xC0 ? 1 : 0;
        return dark * 1000 / (int64_t{place.width} * place.height);
    }
};

TEST_F(FaceThumbs, ShowThePagesAndFollowTheUser) {
    ASSERT_NO_FATAL_FAILURE(open(3));
    EXPECT_EQ(GetWindow(window(), GW_OWNER), host->handle());
    EXPECT_EQ(user::textOf(window()), L"Thumbnails \u2013 Document 1001");
    EXPECT_EQ(thumbs()->currentPage(), 3);
    EXPECT_GT(inkOf(1), 20);
    act([&] { user::click(cell(2)); });
    EXPECT_EQ(thumbs()->selectedPages(), std::vector<int16_t>{2});
    act([&] { user::doubleClick(cell(5)); });
    EXPECT_EQ(currentPage(), 5);
    act([] {
        user::press(VK_RIGHT);
        user::press(VK_RIGHT, 1);
        user::press(VK_RETURN);
    });
    EXPECT_EQ(currentPage(), 7);
    EXPECT_EQ(thumbs()->selectedPages(), (std::vector<int16_t>{6, 7}));
    act([] {
        user::press('A', 2);
        user::press(VK_ADD);
    });
    EXPECT_EQ(thumbs()->selectedPages().size(), size_t{sample::ManyPagesCount});
    EXPECT_EQ(thumbs()->itemSizeFactor(), 110);
}

TEST_F(FaceThumbs, ABandSelectsAndTheWheelResizes) {
    ASSERT_NO_FATAL_FAILURE(open());
    const Rectangle second = thumbs()->grid().cell(1);
    act([&] {
        const auto at = [&](LONG x, LONG y) {
            POINT place = {x, y};
            ClientToScreen(list(), &place);
            return place;
        };
        user::moveTo(at(1, second.top + 20));
        user::buttonDown();
        user::moveTo(at(second.left + 10, second.top + 40));
        EXPECT_TRUE(
            user::sees([&] { return thumbs()->isBandShown() && thumbs()->selectedPages().size() == 2; }));
        user::buttonUp();
    });
    EXPECT_FALSE(thumbs()->isBandShown());
    act([] { user::wheel(3, 2); });
    EXPECT_EQ(thumbs()->itemSizeFactor(), 130);
    act([] { user::wheel(-1); });
    EXPECT_GT(thumbs()->grid().scrollPosition(), 0);
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_POS;
    GetScrollInfo(list(), SB_VERT, &info);
    EXPECT_EQ(info.nPos, thumbs()->grid().scrollPosition());
}

TEST_F(FaceThumbs, KeepPlaceAndSettings) {
    ASSERT_NO_FATAL_FAILURE(open());
    thumbs()->run("LARGEBUTTONS");
    thumbs()->run("TOOLBAR");
    EXPECT_FALSE(IsWindowVisible(FindWindowExW(window(), nullptr, L"ToolbarWindow32", nullptr)));
    SetWindowPos(window(), nullptr, 60, 70, 400, 380, SWP_NOZORDER);
    act([] { user::press(VK_ESCAPE); });
    EXPECT_FALSE(window());
    act([&] { user::click(buttonPlace("THUMBS")); });
    RECT place{};
    GetWindowRect(window(), &place);
    EXPECT_EQ(place.left, 60);
    EXPECT_EQ(place.right, 460);
    SendMessageW(window(), WM_CLOSE, 0, 0);
    EXPECT_FALSE(window());
    host.reset();
    control.reset();
    host = FaceHostWindow::create({700, 600});
    control = host->face().control();
    control->setProperty("EngineAddress", std::string(std::getenv("PIXMO_ENGINE")));
    ASSERT_NO_FATAL_FAILURE(open());
    GetWindowRect(window(), &place);
    EXPECT_EQ(place.top, 70);
    EXPECT_FALSE(thumbs()->mnuPopToolbar);
    const HWND ending = window();
    SendMessageW(host->handle(), FaceHostWindow::EndFace, 0, 0);
    EXPECT_FALSE(IsWindow(ending)) << "the window ends with the control";
}

TEST_F(FaceThumbs, AreAListForAssistivePrograms) {
    ASSERT_NO_FATAL_FAILURE(open());
    IAccessible* accessible = nullptr;
    ASSERT_EQ(AccessibleObjectFromWindow(list(), static_cast<DWORD>(OBJID_CLIENT), IID_IAccessible,
                                         reinterpret_cast<void**>(&accessible)),
              S_OK);
    LONG count = 0;
    EXPECT_EQ(accessible->get_accChildCount(&count), S_OK);
    EXPECT_EQ(count, sample::ManyPagesCount);
    VARIANT item{};
    item.vt = VT_I4;
    item.lVal = 4;
    BSTR name = nullptr;
    EXPECT_EQ(accessible->get_accName(item, &name), S_OK);
    EXPECT_EQ(std::wstring(name), L"Page 4");
    SysFreeString(name);
    EXPECT_EQ(accessible->accSelect(SELFLAG_ADDSELECTION, item), S_OK);
    EXPECT_EQ(thumbs()->selectedPages(), std::vector<int16_t>{4});
    VARIANT state{};
    EXPECT_EQ(accessible->get_accState(item, &state), S_OK);
    EXPECT_NE(state.lVal & STATE_SYSTEM_SELECTED, 0);
    const POINT place = cell(4);
    VARIANT hit{};
    EXPECT_EQ(accessible->accHitTest(place.x, place.y, &hit), S_OK);
    EXPECT_EQ(hit.lVal, 4);
    EXPECT_EQ(accessible->accDoDefaultAction(item), S_OK);
    settle();
    EXPECT_EQ(currentPage(), 4);
    accessible->Release();
}

} // namespace
} // namespace pixmo::com
