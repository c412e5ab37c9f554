#include "faces/com/base/pixelbuffer.h"
#include "tests/com/face/facetest.h"

#include <algorithm>
#include <cstdlib>

namespace pixmo::com {
namespace {

BOOL CALLBACK countWindow(HWND, LPARAM count) {
    ++*reinterpret_cast<int*>(count);
    return TRUE;
}

/// How many windows this thread has, hidden ones too.
int windowCount() {
    int count = 0;
    EnumThreadWindows(GetCurrentThreadId(), countWindow, reinterpret_cast<LPARAM>(&count));
    return count;
}

class FaceLifetime : public FaceTest {
protected:
    /// Draws without a window, on white.
    std::vector<uint32_t> drawn(Size size, bool byMetafile) const {
        PixelBuffer buffer;
        buffer.resize(size);
        PatBlt(buffer.dc(), 0, 0, size.width, size.height, WHITENESS);
        const RECT bounds = {0, 0, size.width, size.height};
        if (byMetafile) {
            const HDC recording = CreateEnhMetaFileW(nullptr, nullptr, nullptr, nullptr);
            host->face().draw(recording, bounds);
            const HENHMETAFILE file = CloseEnhMetaFile(recording);
            // The header knows what was drawn, whatever its frame.
            ENHMETAHEADER header{};
            GetEnhMetaFileHeader(file, sizeof header, &header);
            const RECT play = {header.rclBounds.left, header.rclBounds.top, header.rclBounds.right + 1,
                               header.rclBounds.bottom + 1};
            PlayEnhMetaFile(buffer.dc(), file, &play);
            DeleteEnhMetaFile(file);
        } else {
            host->face().draw(buffer.dc(), bounds);
        }
        const PixelSurface surface = buffer.surface();
        return {surface.pixels, surface.pixels + surface.stride * static_cast<size_t>(size.height)};
    }
    /// To which side the upper third of a button's icon leans: below 0 to the left.
    int64_t leanOf(const std::string& key) const {
        constexpr LONG Half = 14;
        POINT middle = buttonPlace(key);
        ScreenToClient(toolbar(), &middle);
        RECT client{};
        GetClientRect(toolbar(), &client);
        // Pixels on the screen run from left to right, the coordinates of a mirrored window do not.
        if ((GetWindowLongPtrW(toolbar(), GWL_EXSTYLE) & WS_EX_LAYOUTRTL) != 0)
            middle.x = client.right - 1 - middle.x;
        SIZE size{};
        const auto shown = pixels(toolbar(), size);
        int64_t lean = 0;
        for (LONG y = middle.y - Half; y < middle.y - Half / 3; ++y)
            for (LONG x = -Half; x <= Half; ++x)
                lean += (shown[static_cast<size_t>(y * size.cx + middle.x + x)] & 0xFFU) < 0x80 ? x : 0;
        return lean;
    }
    static int64_t dark(const std::vector<uint32_t>& pixels) {
        return std::ranges::count_if(pixels, [](uint32_t pixel) { return (pixel & 0xFFU) < 0x80; });
    }
};

TEST_F(FaceLifetime, DrawsWithoutAWindow) {
    host->face().destroyWindow();
    EXPECT_EQ(host->face().window(), nullptr);
    const Size size = {220, 300};
    const int64_t words = dark(drawn(size, false));
    EXPECT_GT(words, 20) << "a text stands for the page";
    EXPECT_LT(words, 2000);
    load();
    const auto page = drawn(size, false);
    EXPECT_GT(dark(page), words);
    for (const Size other : {Size{440, 600}, Size{60, 600}})
        EXPECT_GT(dark(drawn(other, false)), 50);
    EXPECT_GT(dark(drawn(size, true)), dark(page) / 2) << "by way of a metafile";
}

TEST_F(FaceLifetime, WindowsComeAndGoWithTheControlStaying) {
    load(4);
    const HWND first = host->face().window();
    host->face().destroyWindow();
    EXPECT_FALSE(IsWindow(first));
    control->runCommand("PAGENEXT");
    settle();
    EXPECT_EQ(currentPage(), 5);
    ASSERT_TRUE(host->face().createWindow(host->handle(), {0, 0, 400, 300}));
    host->face().show(true);
    EXPECT_EQ(control->lvrImage().geometry().viewport().width, 400 - GetSystemMetrics(SM_CXVSCROLL));
    const auto other = FaceHostWindow::create({500, 400});
    EXPECT_EQ(host->face().createWindow(other->handle(), {0, 0, 300, 200}), host->face().window());
    EXPECT_EQ(GetParent(host->face().window()), other->handle()) << "moved to another host";
    host->face().destroyWindow();
}

TEST_F(FaceLifetime, AHostReadFromTheRightGetsItsBarsSo) {
    load();
    EXPECT_LT(leanOf("PAGENEXT"), -10);
    EXPECT_LT(leanOf("ROTL"), -10);
    for (const bool byWindow : {false, true}) {
        SCOPED_TRACE(byWindow);
        host->isMirrored = !byWindow;
        SetWindowLongPtrW(host->handle(), GWL_EXSTYLE, byWindow ? WS_EX_LAYOUTRTL : 0);
        host->face().destroyWindow();
        ASSERT_TRUE(host->face().createWindow(host->handle(), {0, 0, 700, 500}));
        host->face().show(true);
        control->Refresh();
        settle();
        RECT outer{};
        GetWindowRect(host->face().window(), &outer);
        EXPECT_GT(buttonPlace("PRINT").x, buttonPlace("FITWIDTH").x);
        RECT readOut{};
        GetWindowRect(part(L"Static"), &readOut);
        EXPECT_EQ(readOut.right, outer.right - 6);
        EXPECT_EQ(GetWindowLongPtrW(page(), GWL_EXSTYLE) & WS_EX_LAYOUTRTL, 0) << "the page is as it is";
        EXPECT_LT(leanOf("ROTL"), -10) << "a page turns as it does everywhere";
        EXPECT_GT(leanOf("PAGENEXT"), 10) << "the next page lies to the left";
    }
}

TEST_F(FaceLifetime, ManyFacesLeaveNothing) {
    load();
    const int before = windowCount();
    for (int round = 0; round < 20; ++round) {
        const auto other = FaceHostWindow::create({300, 200});
        ASSERT_TRUE(other->face().window());
        other->control().runCommand("BUTTONCAPTIONS");
    }
    EXPECT_EQ(windowCount(), before);
}

// The host ends the control inside one of its events.
TEST_F(FaceLifetime, EndsInsideItsOwnEvents) {
    for (const char* event : {"KeyDown", "Click", "PageChanged"}) {
        SCOPED_TRACE(event);
        load();
        const auto end = [this] { SendMessageW(host->handle(), FaceHostWindow::EndFace, 0, 0); };
        ControlEvents& events = control->events();
        if (event == std::string("KeyDown"))
            events.KeyDown.connect([end](int16_t&, int16_t&) { end(); });
        else if (event == std::string("Click"))
            events.Click.connect(end);
        else
            events.PageChanged.connect([end](int32_t, int32_t) { end(); });
        const HWND window = host->face().window();
        const POINT place = onScreen(20, 20);
        control.reset();
        user::act(*host, [&] {
            if (event == std::string("Click"))
                user::click(place);
            else
                user::press(VK_NEXT);
            EXPECT_TRUE(user::sees([&] { return !IsWindow(window); }));
        });
        TearDown();
        SetUp();
    }
}

} // namespace
} // namespace pixmo::com
