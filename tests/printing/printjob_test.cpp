#include "core/control/enumerations.h"
#include "core/printing/dlgpreview.h"
#include "core/printing/dlgprint.h"
#include "faces/scripted/dialoguser.h"
#include "tests/control/logreader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace pixmo {
namespace {

using scripted::ScriptedControl;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class PrintJobTest : public testing::Test {
protected:
    PrintJobTest() {
        auto& events = view().events();
        events.PrintJobBegin.connect([this](int16_t pages, const std::string& data, bool& cancel) {
            happened.push_back("begin " + std::to_string(pages) + " " + data);
            cancel = cancel || vetoes;
        });
        events.PrintJobBeginEX.connect(
            [this](int16_t pages, const std::string& selected, const std::string& data, bool&) {
                happened.push_back("beginEX " + std::to_string(pages) + " " + selected + " " + data);
            });
        events.PrintJobFinish.connect([this](int16_t pages, const std::string& data) {
            happened.push_back("finish " + std::to_string(pages) + " " + data);
        });
        events.PageChanged.connect([this](int32_t, int32_t page) { seen.push_back(page); });
        open();
    }

    ImageView& view() { return *control.view; }
    std::vector<std::string>& drawn() { return control.printers->script->record; }
    int sheets() { return static_cast<int>(std::count(drawn().begin(), drawn().end(), "page")); }
    void finishPage(int16_t page) {
        control.reader->finish(control.tag("GP", 5, page), ScriptedControl::pageFile());
    }
    void open() {
        control.open(5, 2, 6);
        finishPage(2);
        seen.clear();
        control.reader->requests.clear();
    }
    /// Answers each page that is asked for as soon as the control waits.
    void servePages() {
        control.reader->onStart = [this](const AsyncRequest& request) {
            control.eventLoop->post([this, tag = request.PropertyName] {
                if (control.reader->isRunning(tag))
                    control.reader->finish(tag, ScriptedControl::pageFile());
            });
        };
    }
    void printInDialog(const std::function<void(dlgPrint&)>& act) {
        control.dialogs->when<dlgPrint>([act](dlgPrint& dialog) {
            act(dialog);
            dialog.cmdPrint_Click();
        });
        view().runCommand("PRINT");
    }
    void printAllPages() {
        drawn().clear();
        printInDialog([](dlgPrint& dialog) { dialog.optPrintType_Click(AllPages); });
    }
    std::vector<std::string> texts() const {
        std::vector<std::string> result;
        for (const auto& question : control.messageBox->questions)
            result.push_back(question.text);
        return result;
    }

    bool vetoes = false;
    std::vector<std::string> happened;
    std::vector<int32_t> seen;
    std::vector<std::string> statuses;
    ScriptedControl control;
};

TEST_F(PrintJobTest, QuickPrintPrintsTheCurrentPage) {
    LogReader log(control);
    view().runCommand("QUICKPRINT");
    EXPECT_THAT(control.dialogs->shown, IsEmpty());
    EXPECT_THAT(happened, ElementsAre("begin 1 5", "beginEX 1 2 5", "finish 1 5"));
    EXPECT_EQ(drawn().front(), "document Document 5");
    EXPECT_EQ(sheets(), 1);
    EXPECT_THAT(drawn(), Contains(HasSubstr("Page 1 of 1")));
    EXPECT_EQ(view().statusText(), "1 pages queued successfully.");
    EXPECT_EQ(std::get<int32_t>(view().property("PrintPageCount")), 1);
    EXPECT_EQ(std::get<std::string>(view().property("PrintPageSelection")), "2");
    EXPECT_THAT(log.messages(), HasSubstr("Printed page: 2"));
    EXPECT_THAT(texts(), IsEmpty());
    EXPECT_THAT(seen, IsEmpty());
}

TEST_F(PrintJobTest, PagesAreFetchedWithoutDisturbingTheView) {
    servePages();
    view().InterfaceChanged.connect([this] {
        if (statuses.empty() || statuses.back() != view().statusText())
            statuses.push_back(view().statusText());
    });
    view().setProperty("PrintPageNumStyle", int16_t{pnSourceDocPageNums});
    view().setProperty("PrintCaption", std::string("Deed"));
    view().setProperty("PrintImageDesc", std::string("book 7"));
    printInDialog([](dlgPrint& dialog) {
        EXPECT_EQ(dialog.PageCount(), 6);
        EXPECT_EQ(dialog.CurrPage(), 2);
        EXPECT_EQ(dialog.optPrintType(), CurrentPage);
        EXPECT_EQ(dialog.lblPrinterName(), "Front Office");
        dialog.optPrintType_Click(PageRange);
        dialog.txtFromPage_Change("6");
        dialog.txtToPage_Change("1");
    });
    EXPECT_THAT(happened, ElementsAre("begin 6 5", "beginEX 6 1,2,3,4,5,6 5", "finish 6 5"));
    EXPECT_EQ(control.reader->requests.size(), 5U);
    EXPECT_EQ(sheets(), 6);
    EXPECT_THAT(drawn(), Contains(HasSubstr("Page 6 of 6")));
    EXPECT_THAT(drawn(), Contains(HasSubstr("Deed - book 7")));
    EXPECT_THAT(seen, IsEmpty());
    EXPECT_EQ(view().txtPage(), "Page 2 of 6");
    EXPECT_FALSE(control.eventLoop->ranDry);
    EXPECT_THAT(statuses, testing::IsSupersetOf({" Loading pages for print job...", "Preparing to print",
                                                 "Printing page 3 of 6", "Finished printing.",
                                                 "6 pages queued successfully."}));
}

TEST_F(PrintJobTest, TheShownPageIsFetchedAgainWithoutBeingShownAgain) {
    servePages();
    view().clearCache();
    view().runCommand("QUICKPRINT");
    EXPECT_EQ(sheets(), 1);
    EXPECT_EQ(control.reader->requests.size(), 1U);
    EXPECT_THAT(seen, IsEmpty());
    EXPECT_TRUE(view().isPageDisplayed());
}

TEST_F(PrintJobTest, APageOfTheJobThatTheUserGoesToIsShown) {
    control.reader->onStart = [this](const AsyncRequest& request) {
        control.eventLoop->post([this, tag = request.PropertyName] {
            view().setProperty("Page", int16_t{3});
            control.reader->finish(tag, ScriptedControl::pageFile());
        });
    };
    printInDialog([](dlgPrint& dialog) {
        dialog.optPrintType_Click(PageRange);
        dialog.txtFromPage_Change("3");
        dialog.txtToPage_Change("3");
    });
    EXPECT_EQ(sheets(), 1);
    EXPECT_THAT(seen, ElementsAre(3));
    EXPECT_TRUE(view().isPageDisplayed());
}

TEST_F(PrintJobTest, AVetoPrintsNothing) {
    struct {
        const char* what;
        std::function<void()> set;
    } const cases[] = {
        {"by the argument", [&] { vetoes = true; }},
        {"by the property", [&] { vetoes = false, view().setProperty("PrintCancelJob", true); }},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.what);
        happened.clear();
        each.set();
        view().runCommand("QUICKPRINT");
        EXPECT_THAT(happened, ElementsAre("begin 1 5", "beginEX 1 2 5"));
        EXPECT_THAT(drawn(), IsEmpty());
        EXPECT_THAT(control.reader->requests, IsEmpty());
        EXPECT_EQ(view().statusText(), "");
    }
    EXPECT_THAT(texts(), IsEmpty());
}

// The user goes on looking at other things while pages are fetched.
TEST_F(PrintJobTest, TheCurrentViewIsTheOneOfTheMomentOfPrinting) {
    const auto printView = [this](const std::function<void(dlgPrint&)>& act) {
        drawn().clear();
        printInDialog([&](dlgPrint& dialog) {
            dialog.optImageScale_Click(CurrentView);
            act(dialog);
        });
        return std::count_if(drawn().begin(), drawn().end(), [](const std::string& line) {
            return line.rfind("bits 40x60 of 0,0 40x60 at ", 0) == 0;
        });
    };
    control.viewSurface->viewWidth = 40;
    control.viewSurface->viewHeight = 60;
    view().lvrImage().resize();
    view().lvrImage().setSizeMode(SizeMode::Zoom);
    view().lvrImage().setSurfaceResolution(300);
    view().lvrImage().setZoom(100);
    view().events().PrintJobBegin.connect([this](int16_t, const std::string&, bool&) {
        view().lvrImage().rotateRight();
        view().setProperty("Page", int16_t{3});
    });
    EXPECT_EQ(printView([](dlgPrint&) {}), 1);
    finishPage(3);
    EXPECT_EQ(printView([this](dlgPrint&) { view().setProperty("Page", int16_t{4}); }), 0)
        << "the view waits for page 4";
    ASSERT_EQ(texts().size(), 1U);
    EXPECT_EQ(texts().back(), "The following error(s) where reported while printing:\r\n"
                              "Page 3: Error rendering image.");
}

TEST_F(PrintJobTest, OneJobAtATime) {
    control.dialogs->when<dlgPrint>([this](dlgPrint& dialog) {
        view().runCommand("PRINT");
        view().runCommand("QUICKPRINT");
        EXPECT_EQ(view().printJob().print({{2}}), 0);
        dialog.cmdPrint_Click();
    });
    view().events().PrintJobFinish.connect(
        [this](int16_t, const std::string&) { EXPECT_EQ(view().printJob().print({{2}}), 0); });
    view().runCommand("PRINT");
    EXPECT_EQ(control.dialogs->shown.size(), 1U);
    EXPECT_EQ(sheets(), 1);
    EXPECT_EQ(happened.back(), "finish 1 5");
    happened.clear();
    EXPECT_EQ(view().printJob().print({{2}}), 1);
    EXPECT_EQ(happened.size(), 3U);
}

TEST_F(PrintJobTest, ThePreviewFetchesAndGivesUpWhenItIsClosed) {
    const auto previewOf = [&](const char* page, bool closes) {
        scripted::SheetCanvas canvas(
            [this] { return std::make_unique<scripted::PrinterDevice>(control.printers->script); });
        control.dialogs->when<dlgPreview>([&, closes](dlgPreview& dialog) {
            if (closes)
                control.eventLoop->post([&dialog] { dialog.cancel(); });
            dialog.canvasResized(&canvas, {600, 800});
            control.timers->fireRunning();
        });
        control.dialogs->when<dlgPrint>([page](dlgPrint& dialog) {
            dialog.optPrintType_Click(PageRange);
            dialog.txtFromPage_Change(page);
            dialog.txtToPage_Change(page);
            dialog.cmdPreview_Click();
        });
        view().runCommand("PRINT");
        return canvas.seen;
    };
    EXPECT_THAT(previewOf("4", true), ElementsAre("new 600x776"));
    EXPECT_FALSE(control.eventLoop->ranDry);
    servePages();
    EXPECT_THAT(previewOf("6", false), ElementsAre("new 600x776", "shown"));
    EXPECT_THAT(drawn(), Contains(HasSubstr("bits 100x200")));
    EXPECT_THAT(happened, IsEmpty());
}

TEST_F(PrintJobTest, OnePageThatFailsCancelsTheJob) {
    control.reader->onStart = [this](const AsyncRequest& request) {
        control.eventLoop->post([this, tag = request.PropertyName] {
            if (tag == control.tag("GP", 5, 4))
                control.reader->fail(tag, "The server answered 500.");
            else if (control.reader->isRunning(tag))
                control.reader->finish(tag, ScriptedControl::pageFile());
        });
    };
    printAllPages();
    EXPECT_THAT(texts(), ElementsAre("Some pages for the current print job failed to load.\r\n"
                                     "The print job will be cancelled."));
    EXPECT_EQ(control.messageBox->questions[0].title, "Print Job Cancelled");
    EXPECT_THAT(happened, IsEmpty());
    EXPECT_THAT(drawn(), IsEmpty());
    EXPECT_TRUE(view().commands().isEnabled("PRINT"));
}

TEST_F(PrintJobTest, CancelWorksWhileLoadingAndBetweenPages) {
    control.eventLoop->post([this] {
        EXPECT_FALSE(view().commands().isEnabled("PRINT"));
        view().tlbImage_ButtonClick("CANCEL");
    });
    printAllPages();
    EXPECT_THAT(texts(), IsEmpty());
    EXPECT_THAT(happened, IsEmpty());
    EXPECT_TRUE(view().isIdle());

    servePages();
    control.eventLoop->onPending = [this] {
        if (sheets() == 2)
            view().tlbImage_ButtonClick("CANCEL");
    };
    printAllPages();
    EXPECT_EQ(sheets(), 2);
    EXPECT_EQ(drawn().back(), "abort");
    EXPECT_EQ(happened.back(), "finish 0 5");
    EXPECT_EQ(view().statusText(), "Print job cancelled.");

    control.eventLoop->onPending = [this] {
        if (sheets() == 3)
            view().setProperty("PrintCancelJob", true);
    };
    printAllPages();
    EXPECT_EQ(sheets(), 3);
    EXPECT_EQ(happened.back(), "finish 0 5");
}

TEST_F(PrintJobTest, PromptsAndTheirAnswers) {
    LogReader log(control);
    const std::string crop =
        "WARNING: Some pages must be cropped to fit the current printer's paper.  Continue anyway?";
    const std::string errors = "The following error(s) where reported while printing:\r\n";
    const std::string done = "finish 1 5, 1 pages queued successfully.";
    struct {
        std::string job;
        bool yes;
        std::string title, text, end;
        int sheets;
        const char* logged;
    } const cases[] = {
        {"two copies", false, "Multiple Copies Specified",
         "Are you sure you want multiple copies of this document?", "finish 0 5, ", 0, ""},
        {"two copies", true, "Multiple Copies Specified", "Are you sure", done, 2, "Printed page: 2"},
        {"debug info", true, "Printer Debug Info", "Caps for Printer-> Front Office\r\n", done, 1, ""},
        {"narrow", false, "", crop, "finish 0 5, Print job cancelled.", 0, ""},
        {"narrow", true, "", crop, done, 1, ""},
        {"no ink", true, "", errors + "Page 2: Error rendering image.", "finish 0 5, ", 1, "imgQueuePage"},
        {"no printer", true, "", errors + "Printer error", "finish 0 5, ", 0, "imgPrintDoc"},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.job + " " + each.end);
        drawn().clear();
        control.messageBox->questions.clear();
        control.messageBox->answers = {each.yes ? Answer::Yes : Answer::No};
        control.settings->values[{"Settings", "ShowPrintDebugInfo"}] =
            each.job == "debug info" ? "TRUE" : "FALSE";
        scripted::PrinterScript& script = *control.printers->script;
        script.caps[DeviceCap::HorzRes] = each.job == "narrow" ? 90 : 2400;
        script.drawsPictures = each.job != "no ink";
        script.opens = each.job != "no printer";
        printInDialog([&](dlgPrint& dialog) {
            dialog.setCopies(each.job == "two copies" ? 2 : 1);
            dialog.optImageScale_Click(each.job == "narrow" ? FullSize : FitToPage);
        });
        EXPECT_THAT(texts(), ElementsAre(testing::StartsWith(each.text)));
        EXPECT_EQ(control.messageBox->questions.at(0).title, each.title);
        EXPECT_EQ(happened.back() + ", " + view().statusText(), each.end);
        EXPECT_EQ(sheets(), each.sheets);
        EXPECT_THAT(log.messages(), HasSubstr(each.logged));
    }
    EXPECT_EQ(happened.size(), 3 * std::size(cases)) << "each job begins twice and finishes once";
}

TEST_F(PrintJobTest, TheSelectionOfTheThumbnailsIsPrinted) {
    servePages();
    const auto printedNumbers = [this](int16_t style) {
        drawn().clear();
        view().setProperty("PrintPageNumStyle", style);
        view().thumbnails().PrintSelection.raise({1, 3});
        std::string numbers;
        for (const std::string& line : drawn())
            if (const size_t at = line.find("Page "); at != std::string::npos)
                numbers += line.substr(at) + ";";
        return numbers;
    };
    EXPECT_EQ(printedNumbers(pnPrintJobPageNums), "Page 1 of 2;Page 2 of 2;");
    EXPECT_THAT(happened, ElementsAre("begin 2 5", "beginEX 2 1,3 5", "finish 2 5"));
    EXPECT_EQ(printedNumbers(pnSourceDocPageNums), "Page 1 of 6;Page 3 of 6;");
    view().setProperty("PrintPageNums", false);
    EXPECT_EQ(printedNumbers(pnSourceDocPageNums), "");
}

TEST_F(PrintJobTest, AnotherDocumentOrTheEndOfTheControlEndsTheJob) {
    servePages();
    control.printers->script->onStartPage = [this] { view().Clear(); };
    view().runCommand("QUICKPRINT");
    EXPECT_EQ(happened.back(), "finish 1 5") << "the page was drawn before it was cleared";
    open();
    control.printers->script->onStartPage = nullptr;
    control.eventLoop->onPending = [this] {
        if (sheets() == 2)
            view().Clear();
    };
    printAllPages();
    EXPECT_EQ(sheets(), 2);
    EXPECT_EQ(happened.back(), "finish 0 5");

    open();
    drawn().clear();
    happened.clear();
    control.eventLoop->onPending = [this] {
        if (sheets() == 1)
            control.destroy();
    };
    const auto held = control.printers;
    printAllPages();
    EXPECT_EQ(sheets(), 1);
    EXPECT_THAT(happened, testing::Not(Contains(HasSubstr("finish"))));
}

} // namespace
} // namespace pixmo
