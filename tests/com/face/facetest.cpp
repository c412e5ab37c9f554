#include "tests/com/face/facetest.h"

#include "faces/com/base/gdi.h"
#include "faces/com/base/pixelbuffer.h"
#include "faces/com/base/widetext.h"
#include "faces/com/ports/messagebox.h"
#include "faces/com/windows/colours.h"

#include <atomic>
#include <commctrl.h>
#include <cstdlib>
#include <thread>

namespace pixmo::com {

namespace {

/// The button's place among the toolbar's, counted as the toolbar counts.
int indexOf(const ImageView& control, const std::string& key) {
    const auto& buttons = control.tlbImage().Buttons;
    for (size_t i = 0; i < buttons.size(); ++i)
        if (buttons[i].Key == key)
            return static_cast<int>(i);
    return -1;
}

} // namespace

void user::act(FaceHostWindow& host, const std::function<void()>& deeds,
               const std::function<void()>& meanwhile) {
    std::atomic<bool> done = false;
    std::thread thread([&] {
        deeds();
        done = true;
    });
    if (meanwhile)
        meanwhile();
    EXPECT_TRUE(pumpUntil(host, [&] { return done.load(); }));
    thread.join();
    // What was pressed last is still on its way through the message queue.
    EXPECT_TRUE(pumpUntil(host, [] { return GetQueueStatus(QS_INPUT) == 0; }));
}

void FaceTest::SetUp() {
    const char* const engine = std::getenv("PIXMO_ENGINE");
    ASSERT_TRUE(engine) << "PIXMO_ENGINE is to be the address of a sample engine";
    user::forgetSettings();
    MessageBox::setStandIn([this](const std::string& text, Buttons buttons, Icon) {
        boxes.push_back(text);
        return buttons == Buttons::AbortRetryIgnore ? Answer::Abort : Answer::Cancel;
    });
    host = FaceHostWindow::create({700, 600});
    ASSERT_TRUE(host);
    control = host->face().control();
    control->setProperty("EngineAddress", std::string(engine));
    control->setProperty("FetchDelay", int32_t{1});
    control->setProperty("ResizeDelay", int32_t{1});
    settle();
}

void FaceTest::TearDown() {
    control.reset();
    host.reset();
    MessageBox::setStandIn({});
    EXPECT_EQ(boxes, std::vector<std::string>());
}

void FaceTest::load(int32_t document, int16_t page) {
    control->LoadDocumentByDocID(document, page);
    settle();
    ASSERT_TRUE(control->isPageDisplayed());
}

POINT FaceTest::onScreen(LONG x, LONG y) const {
    POINT place = {x, y};
    ClientToScreen(page(), &place);
    return place;
}

POINT FaceTest::buttonPlace(const std::string& key) const {
    RECT place{};
    SendMessageW(toolbar(), TB_GETITEMRECT, static_cast<WPARAM>(indexOf(*control, key)),
                 reinterpret_cast<LPARAM>(&place));
    MapWindowPoints(toolbar(), nullptr, reinterpret_cast<POINT*>(&place), 2);
    return {(place.left + place.right) / 2, (place.top + place.bottom) / 2};
}

BYTE FaceTest::buttonState(const std::string& key) const {
    TBBUTTON button{};
    SendMessageW(toolbar(), TB_GETBUTTON, static_cast<WPARAM>(indexOf(*control, key)),
                 reinterpret_cast<LPARAM>(&button));
    return button.fsState;
}

std::vector<uint32_t> FaceTest::pixels(HWND window, SIZE& size) const {
    RECT client{};
    GetClientRect(window, &client);
    size = {client.right, client.bottom};
    RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
    PixelBuffer buffer;
    if (!buffer.resize({client.right, client.bottom}))
        return {};
    const HDC source = GetDC(window);
    // From left to right, as they are seen.
    SetLayout(source, 0);
    BitBlt(buffer.dc(), 0, 0, client.right, client.bottom, source, 0, 0, SRCCOPY);
    ReleaseDC(window, source);
    const PixelSurface surface = buffer.surface();
    std::vector<uint32_t> copy(surface.pixels,
                               surface.pixels + surface.stride * static_cast<size_t>(surface.height));
    for (uint32_t& pixel : copy)
        pixel &= 0xFFFFFFU;
    return copy;
}

} // namespace pixmo::com
