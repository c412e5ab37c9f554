#pragma once

#include "core/raster/raster.h"
#include "tests/com/face/facehostwindow.h"
#include "tests/com/face/user.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace pixmo::com {

namespace sample {
inline constexpr int32_t ManyPages = 1001;
inline constexpr int16_t ManyPagesCount = 12;
} // namespace sample

namespace user {

/// Runs what the user does on a thread of its own and waits for its end, handling the window's messages all
/// the time. `meanwhile` is done on the window's thread at once; it may open a modal window. Fails the test
/// when it takes too long.
void act(FaceHostWindow& host, const std::function<void()>& deeds,
         const std::function<void()>& meanwhile = {});

} // namespace user

/// The control in a plain program's window, before the sample engine, with settings as a new user has them.
class FaceTest : public testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;

    void load(int16_t page = 1) { load(sample::ManyPages, page); }
    void load(int32_t document, int16_t page);
    void settle() {
        EXPECT_TRUE(pumpUntil(*host, [this] { return control->isIdle(); }));
    }
    /// What the user does, and what comes of it.
    void act(const std::function<void()>& deeds) {
        user::act(*host, deeds);
        settle();
    }

    HWND part(const wchar_t* className) const {
        return FindWindowExW(host->face().window(), nullptr, className, nullptr);
    }
    HWND page() const { return part(L"Pixmo.Page"); }
    HWND toolbar() const { return part(L"ToolbarWindow32"); }
    /// In pixels of the page window.
    POINT onScreen(LONG x, LONG y) const;
    POINT buttonPlace(const std::string& key) const;
    BYTE buttonState(const std::string& key) const;
    /// What a window shows, from the screen, once it is painted: 0xRRGGBB.
    std::vector<uint32_t> pixels(HWND window, SIZE& size) const;
    int16_t currentPage() const { return std::get<int16_t>(control->property("Page")); }

    /// Texts of the message boxes, which are answered by their safest button.
    std::vector<std::string> boxes;
    std::shared_ptr<FaceHostWindow> host;
    std::shared_ptr<ImageView> control;
};

} // namespace pixmo::com
