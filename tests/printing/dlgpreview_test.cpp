#include "core/printing/dlgpreview.h"
#include "faces/scripted/dialoguser.h"
#include "faces/scripted/scriptedports.h"
#include "faces/scripted/scriptedprinters.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace pixmo {
namespace {

using testing::ElementsAre;

class PreviewDialog : public testing::Test {
protected:
    PreviewDialog() {
        request.pages = {1, 2, 3};
        client.given = makeRaster(PixelFormat::Bilevel, 850, 1100);
        client.given.xResolution = client.given.yResolution = 100;
    }

    std::vector<std::string> seen() { return std::exchange(canvas.seen, {}); }

    scripted::MessageBox box;
    scripted::Printers printers;
    scripted::PrintClient client;
    scripted::Timers timers;
    cErrObject errors{&box};
    PrintRequest request;
    scripted::SheetCanvas canvas{
        [this] { return std::make_unique<scripted::PrinterDevice>(printers.script); }};
};

TEST_F(PreviewDialog, TurnsItsSheetsWithinTheJob) {
    constexpr int16_t PageUp = 0x21;
    constexpr int16_t PageDown = 0x22;
    constexpr int16_t End = 0x23;
    constexpr int16_t Home = 0x24;
    request.hasCoverSheet = true;
    PrintPreview preview(errors, box, printers, client, request);
    dlgPreview dialog(preview, timers);
    const scripted::DialogUser user(dialog);
    struct Case {
        int16_t key;
        const char* text;
        bool hasPrevious, hasNext;
    };
    for (const Case& each :
         {Case{PageUp, "Sheet 1 of 4", false, true}, Case{PageDown, "Sheet 2 of 4", true, true},
          Case{End, "Sheet 4 of 4", true, false}, Case{PageDown, "Sheet 4 of 4", true, false},
          Case{PageUp, "Sheet 3 of 4", true, true}, Case{Home, "Sheet 1 of 4", false, true}}) {
        EXPECT_TRUE(user.press(each.key));
        EXPECT_EQ(user.text("sheetText"), each.text);
        EXPECT_EQ(user.find("&Previous").enabledNow(), each.hasPrevious);
        EXPECT_EQ(user.find("&Next").enabledNow(), each.hasNext);
    }
    user.click("&Next");
    user.click("&Next");
    user.click("&Previous");
    EXPECT_EQ(dialog.sheet(), 1);
}

TEST_F(PreviewDialog, DrawsASheetAsLargeAsFits) {
    PrintPreview preview(errors, box, printers, client, request);
    dlgPreview dialog(preview, timers);
    dialog.canvasResized(&canvas, {600, 2000});
    dialog.canvasResized(&canvas, {2000, 330});
    timers.fireRunning();
    EXPECT_THAT(seen(), ElementsAre("new 255x330", "shown")) << "once, at the last size";
    timers.fireRunning();
    EXPECT_THAT(seen(), ElementsAre()) << "nobody waits any more";
    dialog.turnTo(1);
    client.onPage = [&](int16_t page) {
        if (page == 2)
            dialog.turnTo(2);
    };
    timers.alive.front()->fire();
    EXPECT_THAT(seen(), ElementsAre("new 255x330")) << "overtaken";
    timers.fireRunning();
    EXPECT_THAT(seen(), ElementsAre("new 255x330", "shown"));
}

TEST_F(PreviewDialog, SaysWhyThereIsNoSheet) {
    PrintPreview preview(errors, box, printers, client, request);
    bool closed = false;
    preview.Closed.connect([&] { closed = true; });
    dlgPreview dialog(preview, timers);
    dialog.canvasResized(&canvas, {600, 600});
    timers.alive.back()->fire();
    EXPECT_THAT(seen(), ElementsAre("Loading\u2026"));
    client.given = Raster();
    printers.script->drawsPictures = false;
    client.onPage = [](int16_t) { throw Error(error_number::InvalidPicture, "Error rendering image."); };
    timers.alive.front()->fire();
    EXPECT_THAT(seen(), ElementsAre("new 464x600", "This sheet cannot be shown."));
    dialog.turnTo(1);
    dialog.canvasResized(nullptr, {});
    timers.fireRunning();
    EXPECT_THAT(seen(), ElementsAre()) << "its window has ended";
    scripted::DialogUser(dialog).click("&Close");
    EXPECT_TRUE(closed);
    EXPECT_FALSE(dialog.isOpen());
}

} // namespace
} // namespace pixmo
