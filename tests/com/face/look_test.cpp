#include "tests/com/face/facetest.h"

#include <algorithm>
#include <array>

// The system's look changes while the control is there. The host hands nothing of it on.
namespace pixmo::com {
namespace {

constexpr COLORREF Black = RGB(0, 0, 0);
constexpr COLORREF White = RGB(255, 255, 255);
constexpr COLORREF Green = RGB(0, 255, 0);

struct SystemColour {
    int which;
    COLORREF colour;
};

/// White on black, as users choose it who see little.
constexpr std::array<SystemColour, 10> HighContrast = {{{COLOR_WINDOW, Black},
                                                        {COLOR_WINDOWTEXT, White},
                                                        {COLOR_BTNFACE, Black},
                                                        {COLOR_BTNTEXT, White},
                                                        {COLOR_GRAYTEXT, Green},
                                                        {COLOR_APPWORKSPACE, Black},
                                                        {COLOR_BTNSHADOW, White},
                                                        {COLOR_BTNHIGHLIGHT, White},
                                                        {COLOR_HIGHLIGHT, RGB(128, 0, 128)},
                                                        {COLOR_WINDOWFRAME, White}}};

/// The user's colours while it lives; every program's windows are told.
class SystemColours {
public:
    SystemColours() {
        for (SystemColour& each : before_)
            each.colour = GetSysColor(each.which);
    }
    ~SystemColours() { set(before_); }
    SystemColours(const SystemColours&) = delete;
    SystemColours& operator=(const SystemColours&) = delete;

    static void set(const std::array<SystemColour, 10>& colours) {
        for (const SystemColour& each : colours)
            SetSysColors(1, &each.which, &each.colour);
    }

private:
    std::array<SystemColour, 10> before_ = HighContrast;
};

class FaceLook : public FaceTest {
protected:
    /// How many pixels of a part of the window have that colour, thousandths.
    int64_t shareOf(HWND window, uint32_t rgb, std::optional<RECT> part = {}) const {
        SIZE size{};
        const auto shown = pixels(window, size);
        const RECT room = part.value_or(RECT{0, 0, size.cx, size.cy});
        int64_t count = 0;
        for (LONG y = room.top; y < room.bottom; ++y)
            for (LONG x = room.left; x < room.right; ++x)
                count += shown[static_cast<size_t>(y * size.cx + x)] == rgb ? 1 : 0;
        return count * 1000 / (int64_t{room.right - room.left} * (room.bottom - room.top));
    }
    RECT buttonArea(const std::string& key) const {
        const POINT middle = buttonPlace(key);
        RECT area = {middle.x - 16, middle.y - 16, middle.x + 16, middle.y + 16};
        MapWindowPoints(nullptr, toolbar(), reinterpret_cast<POINT*>(&area), 2);
        return area;
    }
    LONG fontHeight(HWND window) const {
        LOGFONTW font{};
        GetObjectW(reinterpret_cast<HGDIOBJ>(SendMessageW(window, WM_GETFONT, 0, 0)), sizeof font, &font);
        return -font.lfHeight;
    }
};

TEST_F(FaceLook, WhiteOnBlackIsTakenAtOnce) {
    const SystemColours before;
    control->setProperty("ThumbsAvailable", true);
    load();
    control->runCommand("THUMBS");
    settle();
    const HWND thumbs = user::findWindow(L"Pixmo.ThumbnailWindow");
    ShowWindow(thumbs, SW_HIDE);
    SystemColours::set(HighContrast);
    settle();
    EXPECT_GT(shareOf(toolbar(), 0xFFFFFF, buttonArea("PAGENEXT")), 20) << "an icon";
    EXPECT_GT(shareOf(toolbar(), 0x00FF00, buttonArea("CANCEL")), 20) << "a disabled one";
    for (const char* key : {"PAGENEXT", "CANCEL"})
        EXPECT_GT(shareOf(toolbar(), 0, buttonArea(key)), 500) << key;
    const HWND readOut = part(L"Static");
    EXPECT_GT(shareOf(readOut, 0xFFFFFF), 20);
    EXPECT_GT(shareOf(readOut, 0), 600);
    EXPECT_EQ(control->lvrImage().background() & 0xFFFFFFU, 0U) << "around the page";
    control->LoadDocumentByDocID(sample::ManyPages, 9);
    ASSERT_NE(control->viewNotice(), "");
    const RECT view = {0, 0, 600, 400};
    EXPECT_GT(shareOf(page(), 0, view), 20) << "the plate of a notice";
    settle();
    ShowWindow(thumbs, SW_SHOW);
    EXPECT_GT(shareOf(FindWindowExW(thumbs, nullptr, L"Pixmo.Thumbnails", nullptr), 0), 200);
    EXPECT_GT(shareOf(FindWindowExW(thumbs, nullptr, L"ToolbarWindow32", nullptr), 0xFFFFFF), 20);
}

TEST_F(FaceLook, AnotherFontOfTheSystemIsTaken) {
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof metrics;
    SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
    const LONG before = fontHeight(part(L"Static"));
    const LONG usual = metrics.lfMessageFont.lfHeight;
    metrics.lfMessageFont.lfHeight = 2 * usual;
    SystemParametersInfoW(SPI_SETNONCLIENTMETRICS, sizeof metrics, &metrics,
                          SPIF_UPDATEINIFILE | SPIF_SENDCHANGE);
    EXPECT_EQ(fontHeight(part(L"Static")), 2 * before);
    metrics.lfMessageFont.lfHeight = usual;
    SystemParametersInfoW(SPI_SETNONCLIENTMETRICS, sizeof metrics, &metrics,
                          SPIF_UPDATEINIFILE | SPIF_SENDCHANGE);
    EXPECT_EQ(fontHeight(part(L"Static")), before);
}

} // namespace
} // namespace pixmo::com
