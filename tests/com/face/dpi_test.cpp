#include "faces/com/base/widetext.h"
#include "faces/com/windows/dpi.h"
#include "faces/com/windows/fonts.h"
#include "tests/com/face/facetest.h"

#include <algorithm>
#include <commctrl.h>

// On a screen of 192 pixels per inch. A window of a thread that knows nothing of resolutions is there all the
// same one of 96: a control that is moved between the two has come to another screen.
namespace pixmo::com {
namespace {

constexpr int Doubled = 2 * UsualDpi;

/// Whose text does not fit into them.
BOOL CALLBACK addClipped(HWND control, LPARAM texts) {
    const std::wstring text = user::textOf(control);
    std::array<wchar_t, 16> kind{};
    GetClassNameW(control, kind.data(), static_cast<int>(kind.size()));
    RECT room{};
    GetClientRect(control, &room);
    const bool isEdit = std::wstring_view(kind.data()) == L"Edit";
    const bool isOnlySpoken = IsRectEmpty(&room) != 0;
    if (text.empty() || isEdit || isOnlySpoken || !IsWindowVisible(control))
        return TRUE;
    const ScreenDc screen;
    const Selected font(screen.get(), reinterpret_cast<HGDIOBJ>(SendMessageW(control, WM_GETFONT, 0, 0)));
    RECT needed = {0, 0, room.right, 0};
    DrawTextW(screen.get(), text.c_str(), -1, &needed, DT_CALCRECT | DT_WORDBREAK);
    if (needed.right > room.right || needed.bottom > room.bottom)
        reinterpret_cast<std::vector<std::wstring>*>(texts)->push_back(text);
    return TRUE;
}

struct Sizes {
    LONG icon = 0;
    LONG font = 0;
    LONG toolbar = 0;
    LONG status = 0;
    LONG zoom = 0; ///< percent of the picture in true size

    bool operator==(const Sizes&) const = default;
};

class FaceResolution : public FaceTest {
protected:
    void SetUp() override {
        FaceTest::SetUp();
        ASSERT_EQ(dpiOf(host->handle()), Doubled);
    }
    void TearDown() override {
        setDpiStandIn(0);
        FaceTest::TearDown();
    }

    HWND face() const { return host->face().window(); }
    static LONG heightOf(HWND window) {
        RECT place{};
        GetWindowRect(window, &place);
        return place.bottom - place.top;
    }
    Sizes sizes() const {
        int icon = 0;
        int height = 0;
        ImageList_GetIconSize(reinterpret_cast<HIMAGELIST>(SendMessageW(toolbar(), TB_GETIMAGELIST, 0, 0)),
                              &icon, &height);
        LOGFONTW font{};
        GetObjectW(reinterpret_cast<HGDIOBJ>(SendMessageW(part(L"Static"), WM_GETFONT, 0, 0)), sizeof font,
                   &font);
        return {icon, -font.lfHeight, heightOf(toolbar()), heightOf(part(L"Static")),
                std::stol(control->zoomText())};
    }
};

void expectDoubled(const Sizes& usual, const Sizes& doubled) {
    EXPECT_EQ(doubled.icon, 2 * usual.icon);
    EXPECT_NEAR(doubled.font, 2 * usual.font, 1);
    EXPECT_NEAR(doubled.toolbar, 2 * usual.toolbar, 4);
    EXPECT_NEAR(doubled.status, 2 * usual.status, 4);
    EXPECT_NEAR(usual.zoom, 2 * doubled.zoom, 2);
}

TEST_F(FaceResolution, AControlFollowsItsWindowToAnotherScreen) {
    host->resizeInside({1200, 700});
    load();
    control->runCommand("FITWIDTH");
    const Sizes doubled = sizes();
    EXPECT_EQ(doubled.icon, 64);
    setDpiStandIn(UsualDpi);
    EXPECT_EQ(sizes(), doubled) << "nobody has told it";
    SendMessageW(face(), DpiChangedAfterParent, 0, 0);
    const Sizes usual = sizes();
    expectDoubled(usual, doubled);
    setDpiStandIn(Doubled);
    host->resizeInside({1200, 699});
    EXPECT_EQ(sizes(), doubled) << "a new size is word enough";
}

TEST_F(FaceResolution, CaptionsAreReadAsAWhole) {
    load();
    control->runCommand("BUTTONCAPTIONS");
    const auto font = reinterpret_cast<HFONT>(SendMessageW(toolbar(), WM_GETFONT, 0, 0));
    const auto& buttons = control->tlbImage().Buttons;
    for (size_t i = 0; i < buttons.size(); ++i) {
        RECT place{};
        SendMessageW(toolbar(), TB_GETITEMRECT, i, reinterpret_cast<LPARAM>(&place));
        const SIZE text = textSize(font, toWide(buttons[i].Caption));
        EXPECT_GE(place.right - place.left, text.cx) << buttons[i].Key;
        EXPECT_GE(place.bottom - place.top, text.cx == 0 ? 0 : text.cy + 64) << buttons[i].Key;
    }
}

TEST_F(FaceResolution, NoTextOfADialogIsClipped) {
    constexpr const wchar_t* Dialog = L"#32770";
    load();
    for (const char* command : {"PAGEGOTO", "ABOUT", "IMAGEINFO", "SHOWLOG", "PRINT"}) {
        SCOPED_TRACE(command);
        user::act(
            *host,
            [&] {
                EXPECT_TRUE(user::sees([] { return user::findWindow(Dialog); }));
                const HWND dialog = user::findWindow(Dialog);
                std::vector<std::wstring> clipped;
                EnumChildWindows(dialog, addClipped, reinterpret_cast<LPARAM>(&clipped));
                EXPECT_EQ(clipped, std::vector<std::wstring>());
                EXPECT_GT(heightOf(FindWindowExW(dialog, nullptr, L"Button", nullptr)), 40);
                PostMessageW(dialog, WM_CLOSE, 0, 0);
                EXPECT_TRUE(user::sees([&] { return !IsWindow(dialog); }));
            },
            [&] { std::shared_ptr<ImageView>(control)->runCommand(command); });
    }
}

TEST_F(FaceResolution, ThumbnailsTakeThePlaceOfTheirNewScreen) {
    load();
    control->setProperty("ThumbsAvailable", true);
    control->runCommand("THUMBS");
    settle();
    const HWND thumbs = user::findWindow(L"Pixmo.ThumbnailWindow");
    const HWND bar = FindWindowExW(thumbs, nullptr, L"ToolbarWindow32", nullptr);
    EXPECT_GT(heightOf(bar), 64);
    const RECT wanted = {30, 40, 630, 840};
    SendMessageW(thumbs, DpiChanged, MAKEWPARAM(Doubled, Doubled), reinterpret_cast<LPARAM>(&wanted));
    RECT place{};
    GetWindowRect(thumbs, &place);
    EXPECT_TRUE(EqualRect(&place, &wanted));
    SetWindowPos(thumbs, nullptr, 0, 0, 10, 10, SWP_NOMOVE | SWP_NOZORDER);
    GetWindowRect(thumbs, &place);
    EXPECT_EQ(place.right - place.left, 320) << "the least width, doubled";
}

} // namespace
} // namespace pixmo::com
