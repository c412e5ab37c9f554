#include "faces/qt/windows/thumbsview.h"
#include "faces/qt/windows/thumbswindow.h"
#include "tests/qt/viewfixture.h"

#include <QAction>
#include <QApplication>
#include <QHelpEvent>
#include <QPointer>
#include <QTest>
#include <QToolTip>

namespace pixmo::qt {
namespace {

class Lifetime : public ViewFixture {
protected:
    /// The widget is gone, its transfers too, and nothing that it started does anything any more.
    void expectCleanEnd() {
        EXPECT_FALSE(view);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCoreApplication::processEvents();
        EXPECT_EQ(pageFiles(), 0);
        makeView();
        engine.setFaults("");
        view->LoadDocumentByDocID(sample::ManyPages, 1);
        EXPECT_TRUE(waitForPage(1));
        EXPECT_EQ(boxes.texts(), QStringList());
    }
};

TEST_F(Lifetime, EndsInTheSlotOfAnyChange) {
    QObject::connect(view.get(), &ImageView::PageChanged, view.get(), [&](int document, int) {
        if (document != 0)
            view.reset();
    });
    view->LoadDocumentByDocID(sample::ManyPages, 2);
    EXPECT_TRUE(waitFor([&] { return !view; }));
    expectCleanEnd();
}

TEST_F(Lifetime, EndsInsideOfTheCallThatLoads) {
    QObject::connect(view.get(), &ImageView::PageChanged, view.get(), [&] { view.reset(); });
    view->LoadDocumentByDocID(sample::ManyPages, 2);
    expectCleanEnd();
}

TEST_F(Lifetime, EndsInTheNoteOfAProperty) {
    QObject::connect(view.get(), &ImageView::docIDChanged, view.get(), [&] { view.reset(); });
    view->setDocID(sample::ManyPages);
    expectCleanEnd();
}

TEST_F(Lifetime, EndsWhenTheInterfaceChanges) {
    int changes = 0;
    QObject::connect(view.get(), &ImageView::interfaceChanged, view.get(), [&] {
        if (++changes == 5)
            view.reset();
    });
    view->LoadDocumentByDocID(sample::ManyPages, 2);
    EXPECT_TRUE(waitFor([&] { return !view; }));
    expectCleanEnd();
}

TEST_F(Lifetime, EndsWhileItWaitsForTheServer) {
    engine.setFaults("stall:IC");
    QTimer::singleShot(50, [&] { view.reset(); });
    view->LoadDocumentByDocID(sample::ManyPages, 2);
    expectCleanEnd();
}

TEST_F(Lifetime, EndsInMidTransfer) {
    engine.setFaults("drip:GP=1000");
    view->LoadDocumentByDocID(sample::ManyPages, 1);
    ASSERT_TRUE(waitFor([] { return pageFiles() == 1; }));
    view.reset();
    expectCleanEnd();
}

TEST_F(Lifetime, EndsInTheDelayBeforeAFetch) {
    view->LoadDocumentByDocID(sample::ManyPages, 1);
    ASSERT_TRUE(waitForPage(1));
    view->setFetchDelay(60'000);
    view->action(QStringLiteral("PAGENEXT"))->trigger();
    EXPECT_FALSE(view->isIdle());
    view.reset();
    expectCleanEnd();
}

TEST_F(Lifetime, EndsInTheSlotOfATimer) {
    view->LoadDocumentByDocID(sample::ManyPages, 1);
    ASSERT_TRUE(waitForPage(1));
    QObject::connect(view.get(), &ImageView::interfaceChanged, view.get(), [&] {
        // The transfer is started by the timer that delays it.
        if (view->page() == 2 && view->action(QStringLiteral("CANCEL"))->isEnabled())
            view.reset();
    });
    view->action(QStringLiteral("PAGENEXT"))->trigger();
    EXPECT_TRUE(view);
    EXPECT_TRUE(waitFor([&] { return !view; }));
    expectCleanEnd();
}

TEST_F(Lifetime, EndsInsideAnEventOfTheThumbnails) {
    view->setThumbsAvailable(true);
    view->LoadDocumentByDocID(sample::ManyPages, 1);
    ASSERT_TRUE(waitForPage(1));
    view->action(QStringLiteral("THUMBS"))->trigger();
    const QPointer<ThumbsWindow> thumbs = view->findChild<ThumbsWindow*>();
    ASSERT_TRUE(thumbs);
    ThumbsView& list = thumbs->view();
    QHelpEvent help(QEvent::ToolTip, {60, 60}, list.viewport()->mapToGlobal(QPoint(60, 60)));
    QApplication::sendEvent(list.viewport(), &help);
    EXPECT_EQ(QToolTip::text(), QStringLiteral("Page 1"));
    QObject::connect(view.get(), &ImageView::PageChanged, view.get(), [this] { view.reset(); });
    QTest::keyClick(&list, Qt::Key_End);
    QTest::keyClick(&list, Qt::Key_Return);
    EXPECT_TRUE(waitFor([&] { return !view && !thumbs; }));
}

TEST_F(Lifetime, EndsWhileAMessageBoxStands) {
    engine.setFaults("errtext:GP");
    QPointer<QMessageBox> standing;
    boxes.act = [&](QMessageBox& box) {
        standing = &box;
        view.reset();
    };
    view->LoadDocumentByDocID(sample::ManyPages, 1);
    EXPECT_TRUE(waitFor([&] { return !view; }));
    EXPECT_FALSE(standing);
    EXPECT_EQ(boxes.texts().size(), 1);
    EXPECT_EQ(pageFiles(), 0);
}

TEST_F(Lifetime, SaysNothingWhileItEnds) {
    view->LoadDocumentByDocID(sample::ManyPages, 1);
    ASSERT_TRUE(waitForPage(1));
    int said = 0;
    QObject::connect(view.get(), &ImageView::PageChanged, [&] { ++said; });
    QObject::connect(view.get(), &ImageView::interfaceChanged, [&] { ++said; });
    QObject::connect(view.get(), &ImageView::docIDChanged, [&] { ++said; });
    view.reset();
    EXPECT_EQ(said, 0);
    EXPECT_EQ(pageFiles(), 0);
}

TEST_F(Lifetime, TwoViewsInOneWindowAreStrangers) {
    QWidget window;
    ImageView other(&window);
    view->setParent(&window);
    other.setEngineAddress(engine.address());
    other.LoadDocumentByDocID(sample::OtherDocument, 2);
    view->LoadDocumentByDocID(sample::ManyPages, 5);
    EXPECT_TRUE(waitForPage(5));
    EXPECT_TRUE(waitFor([&] { return other.isPageDisplayed() && other.isIdle(); }));
    EXPECT_EQ(pageFiles(), 2);
    view.reset();
    EXPECT_TRUE(other.isPageDisplayed());
    EXPECT_EQ(other.docID(), sample::OtherDocument);
    other.setPage(3);
    EXPECT_TRUE(waitFor([&] { return other.isPageDisplayed() && other.isIdle(); }));
    EXPECT_EQ(other.readOut(), QStringLiteral("Page 3 of 3"));
}

} // namespace
} // namespace pixmo::qt
