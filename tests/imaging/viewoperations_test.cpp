#include "core/imaging/cleadimagefunctions.h"

#include "faces/scripted/scriptedports.h"

#include <gtest/gtest.h>

namespace pixmo {
namespace {

class ViewOperations : public testing::Test {
protected:
    ViewOperations() {
        Raster page = makeRaster(PixelFormat::Bilevel, 1000, 2000);
        page.xResolution = page.yResolution = 96;
        view.setRaster(std::move(page));
    }

    scripted::ViewSurface surface;
    scripted::PageDecoder decoder;
    cErrObject errors;
    RasterView view{surface};
    cLeadImageFunctions help{errors, view, decoder};
};

TEST_F(ViewOperations, ZoomGoesByTenths) {
    view.setZoom(100);
    help.imgZoomIn();
    help.imgZoomIn();
    EXPECT_NEAR(view.zoom(), 121, 1e-4);
    view.setZoom(10.5F);
    help.imgZoomOut();
    EXPECT_NEAR(view.zoom(), 9.45, 1e-4);
    help.imgZoomOut();
    EXPECT_NEAR(view.zoom(), 9.45, 1e-4);
    view.setZoom(10);
    help.imgZoomOut();
    EXPECT_EQ(view.zoom(), 10);
    view.setZoom(20000);
    help.imgZoomIn();
    EXPECT_NEAR(view.zoom(), 22000, 0.1) << "no upper limit";
    help.imgFitWidth();
    help.imgZoomIn();
    EXPECT_NEAR(view.zoom(), 88, 1e-4) << "from the zoom that fits";
    EXPECT_EQ(view.sizeMode(), SizeMode::Zoom);
}

TEST_F(ViewOperations, FitHoldsForTurnsAndTheNextPage) {
    help.imgFitHeight();
    EXPECT_NEAR(view.zoom(), 50, 1e-4);
    help.imgRotateRight();
    EXPECT_NEAR(view.zoom(), 100, 1e-4) << "the height of the turned picture";
    help.imgRotateLeft();
    EXPECT_NEAR(view.zoom(), 50, 1e-4);
    help.imgFitBest();
    EXPECT_EQ(view.sizeMode(), SizeMode::FitBest);
    Raster fax = makeRaster(PixelFormat::Bilevel, 1728, 1100);
    fax.xResolution = 204;
    fax.yResolution = 98;
    view.setRaster(std::move(fax));
    EXPECT_EQ(view.sizeMode(), SizeMode::FitBest);
    help.imgFitHeight();
    EXPECT_NEAR(view.zoom(), 1000 / (1100 / 98.0 * 96) * 100, 1e-3);
}

TEST_F(ViewOperations, SavedViewsComeBack) {
    EXPECT_NE(help.RestoreSavedView("a"), 0);
    EXPECT_EQ(errors.Description(), "No views have been saved.");
    view.setZoom(400);
    view.scrollTo(1000, 1500);
    EXPECT_EQ(help.SaveCurrentView("a"), 0);
    view.setZoom(150);
    EXPECT_EQ(help.SaveCurrentView("b"), 0);
    EXPECT_EQ(help.RestoreSavedView("a"), 0);
    EXPECT_NEAR(view.zoom(), 400, 0.05);
    EXPECT_EQ(view.horizontalBar().position, 1000);
    EXPECT_EQ(view.verticalBar().position, 1500);
    EXPECT_NE(help.RestoreSavedView("A"), 0);
    EXPECT_EQ(errors.Description(), "Could not find a saved view named 'A'");
    view.setZoom(200);
    help.SaveCurrentView("a");
    help.RestoreSavedView("b");
    help.RestoreSavedView("a");
    EXPECT_NEAR(view.zoom(), 200, 0.05);
    help.ResetSavedViews();
    EXPECT_NE(help.RestoreSavedView("a"), 0);
    EXPECT_EQ(errors.Description(), "No views have been saved.");
}

TEST_F(ViewOperations, DragsChangeThePointerAndTheGray) {
    ToolButton button;
    help.imgSelection(&button);
    EXPECT_TRUE(button.Pressed);
    EXPECT_FALSE(view.dragMode);
    EXPECT_EQ(help.imgPan(nullptr), 0);
    EXPECT_TRUE(view.dragMode);
    struct Case {
        bool pan, select, icon, fast;
        int32_t pointer;
        bool grayMeanwhile;
    };
    for (const Case& c :
         {Case{true, false, false, true, 15, false}, Case{true, true, true, false, 99, true},
          Case{false, true, false, true, 2, true}, Case{false, false, false, true, 0, true}}) {
        help.setFastPanning(c.fast);
        help.EventHandler_MouseDown(c.pan, c.select, c.icon);
        EXPECT_EQ(view.pointer(), c.pointer);
        EXPECT_EQ(view.GrayScale(), c.grayMeanwhile);
        EXPECT_EQ(view.rubberBandActive, c.select && !c.pan);
        help.EventHandler_MouseUp(c.pan, c.select);
        EXPECT_EQ(view.pointer(), 0);
        EXPECT_TRUE(view.GrayScale());
        view.rubberBandActive = false;
    }
}

} // namespace
} // namespace pixmo
