#include "core/printing/dlgprint.h"
#include "faces/scripted/dialoguser.h"
#include "faces/scripted/scriptedports.h"
#include "faces/scripted/scriptedprinters.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace pixmo {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class PrintDialog : public testing::Test {
protected:
    PrintDialog() { prepare(); }

    void prepare() {
        dialog.setPageCount(9);
        dialog.setCurrPage(4);
        dialog.setPrinterObject(&printer);
        dialog.Form_Load();
    }

    scripted::MessageBox box;
    scripted::SettingsStore settings;
    scripted::Printers printers;
    cPrinter printer{printers};
    cErrObject errors{&box};
    dlgPrint dialog{errors, box, settings};
};

TEST_F(PrintDialog, PagesOfEachRange) {
    struct {
        int16_t range;
        const char* from;
        const char* to;
        std::vector<int16_t> pages; ///< empty: cancelled
    } const cases[] = {
        {AllPages, "", "", {1, 2, 3, 4, 5, 6, 7, 8, 9}},
        {CurrentPage, "2", "3", {4}},
        {PageRange, " 2 ", "4 ", {2, 3, 4}},
        {PageRange, "7", "3", {3, 4, 5, 6, 7}},
        {PageRange, "8", "123456789", {8, 9}},
        {PageRange, "0", "-5", {1}},
        {PageRange, "2", "", {}},
        {PageRange, "  ", "4", {}},
        {SelectedPages, "", "", {}},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(std::to_string(each.range) + " " + each.from + "-" + each.to);
        dlgPrint fresh(errors, box, settings);
        fresh.setPageCount(9);
        fresh.setCurrPage(4);
        fresh.txtFromPage_Change(each.from);
        fresh.txtToPage_Change(each.to);
        EXPECT_EQ(fresh.optPrintType(), PageRange) << "who types a page means the range";
        fresh.optPrintType_Click(each.range);
        fresh.cmdPrint_Click();
        EXPECT_FALSE(fresh.isOpen());
        EXPECT_EQ(fresh.Cancelled(), each.pages.empty());
        EXPECT_EQ(fresh.PrintPages(), each.pages);
    }
    EXPECT_TRUE(box.questions.empty());
}

TEST_F(PrintDialog, SelectedPagesInListOrder) {
    EXPECT_EQ(dialog.lstSelectedPages().size(), 9U);
    EXPECT_FALSE(dialog.isPageListVisible());
    dialog.optPrintType_Click(SelectedPages);
    EXPECT_TRUE(dialog.isPageListVisible());
    dialog.lstSelectedPages_Click(7, true);
    dialog.lstSelectedPages_Click(2, true);
    dialog.lstSelectedPages_Click(5, true);
    dialog.lstSelectedPages_Click(5, false);
    dialog.lstSelectedPages_Click(10, true);
    dialog.cmdPrint_Click();
    EXPECT_THAT(dialog.PrintPages(), ElementsAre(2, 7));
}

TEST_F(PrintDialog, WhatIsNoNumberIsRefusedAndTheDialogStays) {
    dialog.optPrintType_Click(PageRange);
    dialog.txtFromPage_Change("two");
    dialog.txtToPage_Change("4");
    dialog.cmdPrint_Click();
    EXPECT_TRUE(dialog.isOpen());
    ASSERT_EQ(box.questions.size(), 1U);
    EXPECT_THAT(box.questions[0].text, HasSubstr("dlgPrint.cmdPrint_Click"));
}

TEST_F(PrintDialog, TheCurrentViewIsOfTheCurrentPageOnly) {
    struct {
        int16_t rangeBefore, scaleBefore;
        bool clicksScale;
        int16_t index;
        Answer answer;
        int16_t rangeAfter, scaleAfter;
        int questions;
    } const cases[] = {
        {AllPages, FullSize, true, CurrentView, Answer::Ok, CurrentPage, CurrentView, 1},
        {AllPages, FullSize, true, CurrentView, Answer::Cancel, AllPages, FullSize, 1},
        {CurrentPage, FitToPage, true, CurrentView, Answer::Cancel, CurrentPage, CurrentView, 0},
        {CurrentPage, CurrentView, false, SelectedPages, Answer::Ok, SelectedPages, FitToPage, 1},
        {CurrentPage, CurrentView, false, PageRange, Answer::Cancel, CurrentPage, CurrentView, 1},
        {CurrentPage, CurrentView, false, CurrentPage, Answer::Cancel, CurrentPage, CurrentView, 0},
        {CurrentPage, FullSize, false, AllPages, Answer::Cancel, AllPages, FullSize, 0},
    };
    for (const auto& each : cases) {
        dlgPrint fresh(errors, box, settings);
        fresh.setPageCount(9);
        fresh.optPrintType_Click(each.rangeBefore);
        fresh.setPrintScale(each.scaleBefore);
        box.questions.clear();
        box.answers = {each.answer};
        each.clicksScale ? fresh.optImageScale_Click(each.index) : fresh.optPrintType_Click(each.index);
        EXPECT_EQ(fresh.optPrintType(), each.rangeAfter);
        EXPECT_EQ(fresh.optImageScale(), each.scaleAfter);
        ASSERT_EQ(box.questions.size(), static_cast<size_t>(each.questions));
        if (each.questions > 0) {
            EXPECT_EQ(box.questions[0].text,
                      each.clicksScale
                          ? "Selecting the 'Print Current View Only' option will automatically select the "
                            "'Current Page' range."
                          : "Selecting this page range will deselect the 'Print Current View Only' option.");
            EXPECT_EQ(box.questions[0].buttons, Buttons::OkCancel);
        }
        EXPECT_EQ(fresh.isPageListVisible(), each.rangeAfter == SelectedPages);
    }
}

TEST_F(PrintDialog, CopiesStayEqualAndWithinBounds) {
    dialog.txtPrntCopies_Change("12");
    EXPECT_EQ(dialog.hscPrntCopies(), 12);
    dialog.hscPrntCopies_Change(1000);
    EXPECT_EQ(dialog.txtPrntCopies(), "999");
    dialog.hscPrntCopies_Change(0);
    EXPECT_EQ(dialog.txtPrntCopies(), "1");
    for (const char* useless : {"", "0", "1000", "many"}) {
        dialog.hscPrntCopies_Change(3);
        dialog.txtPrntCopies_Change(useless);
        EXPECT_EQ(dialog.txtPrntCopies(), useless);
        EXPECT_EQ(dialog.hscPrntCopies(), 3) << useless;
    }
    dialog.cmdPrint_Click();
    EXPECT_EQ(dialog.Copies(), 3);
    EXPECT_EQ(dialog.txtPrntCopies(), "3");
}

TEST_F(PrintDialog, MoreOptionsAreRemembered) {
    EXPECT_STREQ(dialog.cmdOptionsCaption(), "More Options");
    dialog.cmdOptions_Click();
    EXPECT_STREQ(dialog.cmdOptionsCaption(), "Less Options");
    EXPECT_EQ((settings.values[{"dlgPrint", "ShowMore"}]), "True");
    dlgPrint next(errors, box, settings);
    EXPECT_FALSE(next.isMoreShown());
    next.Form_Load();
    EXPECT_TRUE(next.isMoreShown());
    settings.values[{"dlgPrint", "ShowMore"}] = "maybe";
    next.Form_Load();
    EXPECT_FALSE(next.isMoreShown());
}

TEST_F(PrintDialog, ItsFieldsDoWhatTheySay) {
    const scripted::DialogUser user(dialog);
    EXPECT_EQ(dialog.takeFocus(), "cmdPrint");
    EXPECT_EQ(user.text("lblPrinterName"), "Front Office");
    EXPECT_FALSE(user.isVisible("Page Range"));
    user.click("More Options");
    EXPECT_TRUE(user.isVisible("Page Range"));
    const char* const ranges[] = {"&All Pages", "C&urrent Page", "&Selected Pages", "Page"};
    const char* const sizes[] = {"&Fit to Page", "Print Full &Size (100%)", "Print &Current View Only"};
    for (int16_t index = 0; index < 4; ++index) {
        user.click(ranges[index]);
        EXPECT_EQ(dialog.optPrintType(), index);
        EXPECT_TRUE(user.isChosen(ranges[index]));
        EXPECT_EQ(user.isVisible("lstSelectedPages"), index == SelectedPages);
    }
    user.click("C&urrent Page");
    for (int16_t index = 0; index < 3; ++index) {
        user.click(sizes[index]);
        EXPECT_EQ(dialog.optImageScale(), index);
        EXPECT_TRUE(user.isChosen(sizes[index]));
    }
    const DialogPart& list = user.find("lstSelectedPages");
    EXPECT_EQ(list.entries.size(), 9U);
    list.select(6, true);
    EXPECT_TRUE(list.isSelected(6));
    EXPECT_TRUE(dialog.isPageSelected(7));
    user.type("txtPrntCopies", "12");
    EXPECT_EQ(dialog.Copies(), 12);
    user.type("txtFromPage", "3");
    EXPECT_EQ(user.text("txtFromPage"), "3");
    user.type("txtToPage", "4");
    user.click("&Print");
    EXPECT_THAT(dialog.PrintPages(), ElementsAre(4)) << "the view is the current page's, Cancel says";
}

TEST_F(PrintDialog, ChoosesThePrinter) {
    EXPECT_EQ(dialog.PrinterName(), "Front Office");
    dialog.cmdSelectPrinter_Click();
    EXPECT_EQ(dialog.lblPrinterName(), "Front Office");
    printers.chosen = "Archive";
    dialog.cmdSelectPrinter_Click();
    EXPECT_EQ(dialog.lblPrinterName(), "Archive");
    EXPECT_TRUE(box.questions.empty());
    dialog.setPrinterObject(nullptr);
    dialog.cmdSelectPrinter_Click();
    ASSERT_EQ(box.questions.size(), 1U);
    EXPECT_EQ(box.questions[0].text, "WARNING: PrintDialog reference was not sent to dlgPrint!");
}

} // namespace
} // namespace pixmo
