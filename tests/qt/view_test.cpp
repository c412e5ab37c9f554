#include "tests/qt/viewfixture.h"

#include <QAbstractScrollArea>
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QToolBar>

namespace pixmo::qt {
namespace {

class View : public ViewFixture {
protected:
    QAbstractScrollArea& page() const { return *view->findChild<QAbstractScrollArea*>(); }
    QImage picture() const { return page().viewport()->grab().toImage(); }
    /// How much of the picture is that dark, in thousandths.
    static int share(const QImage& image, int below) {
        int count = 0;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                count += qGray(image.pixel(x, y)) < below ? 1 : 0;
        return count * 1000 / (image.width() * image.height());
    }
    void open(int pageNumber = 1) {
        view->LoadDocumentByDocID(sample::ManyPages, pageNumber);
        ASSERT_TRUE(waitForPage(pageNumber));
    }
    void press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const {
        QTest::keyClick(&page(), static_cast<Qt::Key>(key), modifiers);
    }
};

TEST_F(View, ShowsThePageSharplyAtDeviceResolution) {
    open();
    const QImage shown = picture();
    EXPECT_GT(share(shown, 100), 3) << "no ink";
    EXPECT_LT(share(shown, 200), 500) << "no paper";
    EXPECT_EQ(shown.size(), page().viewport()->size() * view->devicePixelRatioF());
}

TEST_F(View, ScrollsByBarsKeysAndWheel) {
    open();
    const QScrollBar& bar = *page().verticalScrollBar();
    ASSERT_TRUE(bar.isVisible());
    EXPECT_FALSE(page().horizontalScrollBar()->isVisible()) << "the page is fitted to the width";
    const QImage top = picture();
    press(Qt::Key_Down);
    EXPECT_EQ(bar.value(), 30);
    QWheelEvent wheel({50, 50}, page().viewport()->mapToGlobal(QPointF(50, 50)), {}, {0, -240}, Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(page().viewport(), &wheel);
    const int wheeled = bar.value();
    EXPECT_GT(wheeled, 30);
    page().verticalScrollBar()->setValue(bar.maximum());
    EXPECT_NE(picture(), top);
    page().verticalScrollBar()->setValue(0);
    EXPECT_EQ(picture(), top);
}

TEST_F(View, TurnsPagesByKeysAndTellsTheHost) {
    open();
    QList<int> pages;
    QObject::connect(view.get(), &ImageView::PageChanged, view.get(),
                     [&](int, int number) { pages.append(number); });
    press(Qt::Key_PageDown);
    EXPECT_TRUE(waitForPage(2));
    press(Qt::Key_End);
    EXPECT_TRUE(waitForPage(sample::ManyPagesCount));
    press(Qt::Key_PageDown);
    press(Qt::Key_Home);
    EXPECT_TRUE(waitForPage(1));
    EXPECT_EQ(pages, (QList<int>{2, sample::ManyPagesCount, 1}));
    EXPECT_EQ(view->readOut(), QStringLiteral("Page 1 of 12"));
}

TEST_F(View, ForwardsKeysAndClicks) {
    QStringList events;
    const auto note = [&](const char* name, int code, int shift) {
        events.append(QStringLiteral("%1 %2 %3").arg(QLatin1String(name)).arg(code).arg(shift));
    };
    QObject::connect(view.get(), &ImageView::KeyDown,
                     [&](short& code, short& shift) { note("down", code, shift); });
    QObject::connect(view.get(), &ImageView::KeyPress, [&](short& ascii) { note("press", ascii, 0); });
    QObject::connect(view.get(), &ImageView::KeyUp,
                     [&](short& code, short& shift) { note("up", code, shift); });
    const QSignalSpy clicks(view.get(), &ImageView::Click);
    const QSignalSpy doubleClicks(view.get(), &ImageView::DblClick);
    for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent key(type, Qt::Key_A, Qt::ShiftModifier, QStringLiteral("A"));
        QApplication::sendEvent(&page(), &key);
    }
    EXPECT_EQ(events, (QStringList{QStringLiteral("down 65 1"), QStringLiteral("press 65 0"),
                                   QStringLiteral("up 65 1")}));
    QTest::mouseClick(page().viewport(), Qt::LeftButton);
    QTest::mouseDClick(page().viewport(), Qt::LeftButton);
    EXPECT_GE(clicks.size(), 1);
    EXPECT_EQ(doubleClicks.size(), 1);
}

TEST_F(View, AHostThatTakesAKeyTakesItsCharacter) {
    QObject::connect(view.get(), &ImageView::KeyDown, [](short& code, short&) { code = 0; });
    int characters = 0;
    QObject::connect(view.get(), &ImageView::KeyPress, [&] { ++characters; });
    press(Qt::Key_A);
    EXPECT_EQ(characters, 0);
}

TEST_F(View, MirrorsTheToolbar) {
    const auto enabled = [&](const char* key) { return view->action(QLatin1String(key))->isEnabled(); };
    EXPECT_FALSE(enabled("PAGENEXT"));
    EXPECT_FALSE(enabled("FITWIDTH"));
    EXPECT_EQ(view->action(QStringLiteral("NONSENSE")), nullptr);
    const QToolBar& toolbar = *view->findChild<QToolBar*>();
    const auto button = [&](const char* key) { return toolbar.findChild<QAction*>(QLatin1String(key)); };
    EXPECT_EQ(button("STAR"), nullptr);
    open(2);
    EXPECT_TRUE(enabled("PAGENEXT"));
    EXPECT_TRUE(enabled("PAGEPREV"));
    EXPECT_TRUE(enabled("FITWIDTH"));
    EXPECT_FALSE(enabled("CANCEL"));
    EXPECT_TRUE(button("PAGENEXT")->isEnabled());
    EXPECT_FALSE(button("CANCEL")->isEnabled());
    EXPECT_EQ(button("PAGENEXT")->toolTip(), QStringLiteral("Next page"));
    button("PAN")->trigger();
    EXPECT_TRUE(button("PAN")->isChecked()) << "one of the group is always pressed";
    view->action(QStringLiteral("SELECTION"))->trigger();
    EXPECT_FALSE(button("PAN")->isChecked());
    EXPECT_TRUE(button("SELECTION")->isChecked());
    view->setBookmarkAvailable(true);
    const QSignalSpy bookmarks(view.get(), &ImageView::BookmarkRequested);
    button("STAR")->trigger();
    EXPECT_EQ(bookmarks.value(0), (QList<QVariant>{sample::ManyPages, 2}));
    view->setBookmarkAvailable(false);
    EXPECT_FALSE(toolbar.actions().contains(button("STAR")));
    view->setCommandForbidden(QStringLiteral("PAGENEXT"), true);
    EXPECT_FALSE(button("PAGENEXT")->isVisible());
    press(Qt::Key_PageDown);
    EXPECT_EQ(view->page(), 2);
}

TEST_F(View, VeilsTheFormerPageWhileTheNextIsLoading) {
    open();
    const int ink = share(picture(), 100);
    engine.setFaults("stall:GP");
    press(Qt::Key_PageDown);
    ASSERT_TRUE(waitFor([&] { return engine.requests("GP") == 2; }));
    EXPECT_EQ(view->notice(), QStringLiteral("Loading page 2\u2026"));
    const QImage veiled = picture();
    EXPECT_LT(share(veiled, 100), ink) << "the former page shows through as if it were the new one";
    view->action(QStringLiteral("CANCEL"))->trigger();
    EXPECT_TRUE(view->isIdle());
    EXPECT_TRUE(view->notice().startsWith(QStringLiteral("Page 2 could not be loaded.")));
    const QImage failed = picture();
    EXPECT_EQ(failed.pixelColor(20, 20), failed.pixelColor(20, failed.height() - 20));
    EXPECT_LT(share(failed, 255) - share(failed, 120), 1000);
    engine.setFaults("");
    press(Qt::Key_PageUp);
    EXPECT_TRUE(waitForPage(1));
    EXPECT_EQ(share(picture(), 100), ink);
}

TEST_F(View, KeepsItsPartsInsideHoweverSmall) {
    open();
    for (const QSize size : {QSize(1200, 900), QSize(300, 200), QSize(90, 60), QSize(1, 1)}) {
        view->resize(size);
        EXPECT_TRUE(waitUntilIdle());
        for (const QWidget* child : view->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly))
            EXPECT_TRUE(!child->isVisible() || child->width() == 0 || child->height() == 0 ||
                        view->rect().contains(child->geometry()))
                << child->metaObject()->className() << " at " << size.width();
    }
    EXPECT_TRUE(view->isPageDisplayed());
}

TEST_F(View, ShowsTheTraceWhileDebugging) {
    const auto* const pane = view->findChild<QPlainTextEdit*>();
    EXPECT_FALSE(pane->isVisible());
    press(Qt::Key_D, Qt::ShiftModifier);
    EXPECT_TRUE(pane->isVisible());
    EXPECT_TRUE(pane->toPlainText().contains(QStringLiteral("UserControl_InitProperties Fired.")));
    EXPECT_EQ(boxes.texts().size(), 1);
    press(Qt::Key_D, Qt::ShiftModifier);
    EXPECT_FALSE(pane->isVisible());
}

TEST_F(View, GoesToThePageThatIsTypedIn) {
    open();
    QTimer typist;
    QObject::connect(&typist, &QTimer::timeout, &typist, [&] {
        if (QWidget* const dialog = QApplication::activeModalWidget()) {
            typist.stop();
            QTest::keyClicks(dialog->findChild<QLineEdit*>(), QStringLiteral("x7"));
            QTest::keyClick(dialog, Qt::Key_Return);
        }
    });
    typist.start(5);
    view->action(QStringLiteral("PAGEGOTO"))->trigger();
    EXPECT_TRUE(waitForPage(7));
}

TEST_F(View, CopiesThePageWhole) {
    open();
    view->action(QStringLiteral("COPY"))->trigger();
    const QImage copied = QGuiApplication::clipboard()->image();
    EXPECT_GT(copied.width(), 2000);
    EXPECT_GT(copied.height(), copied.width());
    EXPECT_EQ(copied.pixelColor(copied.width() / 2, 60), QColor(Qt::white));
}

TEST_F(View, ZoomsAndPansByTheMouse) {
    open();
    QWheelEvent wheel({50, 50}, page().viewport()->mapToGlobal(QPointF(50, 50)), {}, {0, 240}, Qt::NoButton,
                      Qt::ControlModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(page().viewport(), &wheel);
    ASSERT_TRUE(page().horizontalScrollBar()->isVisible());
    const int from = page().verticalScrollBar()->value();
    QTest::mousePress(page().viewport(), Qt::LeftButton, {}, {200, 300});
    QTest::mouseMove(page().viewport(), {180, 200});
    QTest::mouseRelease(page().viewport(), Qt::LeftButton, {}, {180, 200});
    EXPECT_EQ(page().verticalScrollBar()->value(), from + qRound(100 * view->devicePixelRatioF()));
}

TEST_F(View, NamesItsPartsForScreenReaders) {
    open(3);
    EXPECT_EQ(page().accessibleName(), QStringLiteral("Page"));
    EXPECT_TRUE(page().accessibleDescription().startsWith(QStringLiteral("Page 3 of 12, ")));
    for (const QWidget* child : view->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly))
        EXPECT_FALSE(child->accessibleName().isEmpty()) << child->metaObject()->className();
}

} // namespace
} // namespace pixmo::qt
