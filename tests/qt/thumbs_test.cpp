#include "tests/qt/thumbsfixture.h"

#include <QAccessible>
#include <QHelpEvent>
#include <QImage>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QToolBar>
#include <QToolTip>
#include <QWheelEvent>
#include <filesystem>
#include <vector>

namespace pixmo::qt {
namespace {

using Thumbs = ThumbsFixture;

/// How many pixels of a page's cell are not paper.
int inkPixels(const QImage& image, const QRect& cell) {
    int ink = 0;
    for (int y = cell.top() + 12; y < cell.bottom() - 30; ++y)
        for (int x = cell.left() + 20; x < cell.right() - 20; ++x)
            ink += qGray(image.pixel(x, y)) < 215 ? 1 : 0;
    return ink;
}

TEST_F(Thumbs, ShowsThePagesOfTheDocument) {
    ASSERT_NO_FATAL_FAILURE(openThumbs());
    EXPECT_EQ(window()->windowTitle(), QString::fromUtf8("Thumbnails \u2013 Document 1001"));
    EXPECT_FALSE(window()->isModal());
    EXPECT_EQ(thumbs()->grid().itemCount(), sample::ManyPagesCount);
    ASSERT_TRUE(waitForThumbs());
    const ThumbGrid::Range range = thumbs()->grid().visible();
    const QImage seen = list().viewport()->grab().toImage();
    for (int item = range.first; item < range.end; ++item) {
        if (list().viewport()->rect().contains(cell(item))) {
            EXPECT_GT(inkPixels(seen, cell(item)), 100) << "page " << item + 1;
        }
    }
    keepPicture(*window(), QStringLiteral("thumbs-12"));
    EXPECT_EQ(engine.requests("GP"), 12) << "each page once";
}

TEST_F(Thumbs, MouseAndKeyboard) {
    ASSERT_NO_FATAL_FAILURE(openThumbs());
    ASSERT_TRUE(waitForThumbs());
    click(2);
    click(4, Qt::ShiftModifier);
    click(1, Qt::ControlModifier);
    EXPECT_EQ(thumbs()->selectedPages(), (std::vector<int16_t>{1, 2, 3, 4}));
    EXPECT_EQ(view->page(), 1);
    keepPicture(*window(), QStringLiteral("thumbs-selected"));
    QTest::keyClick(&list(), Qt::Key_Home);
    QTest::keyClick(&list(), Qt::Key_Right);
    EXPECT_EQ(thumbs()->selectedPages(), (std::vector<int16_t>{2}));
    QTest::keyClick(&list(), Qt::Key_Return);
    EXPECT_TRUE(waitForPage(2));
    QTest::mouseDClick(list().viewport(), Qt::LeftButton, {}, middle(3));
    EXPECT_TRUE(waitForPage(3));
    QTest::keyClick(&list(), Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(thumbs()->selectedPages().size(), 12U);
    const QPoint from = cell(0).topLeft() + QPoint(3, 3);
    const QPoint to = cell(1).center();
    QTest::mousePress(list().viewport(), Qt::LeftButton, {}, from);
    QTest::mouseMove(list().viewport(), to);
    EXPECT_TRUE(waitFor([&] { return thumbs()->isBandShown(); }));
    keepPicture(*window(), QStringLiteral("thumbs-band"));
    QTest::mouseRelease(list().viewport(), Qt::LeftButton, {}, to);
    EXPECT_FALSE(thumbs()->isBandShown());
    EXPECT_EQ(thumbs()->selectedPages(), (std::vector<int16_t>{1, 2}));
    QTest::keyClick(&list(), Qt::Key_Escape);
    EXPECT_EQ(window(), nullptr);
}

void wheel(QWidget& widget, int steps, Qt::KeyboardModifiers with) {
    const QPointF place(widget.rect().center());
    QWheelEvent event(place, widget.mapToGlobal(place), {}, {0, 120 * steps}, Qt::NoButton, with,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(&widget, &event);
}

TEST_F(Thumbs, WheelScrollsAndResizes) {
    ASSERT_NO_FATAL_FAILURE(openThumbs());
    wheel(*list().viewport(), 2, Qt::ControlModifier);
    EXPECT_EQ(thumbs()->itemSizeFactor(), 120);
    wheel(*list().viewport(), -1, Qt::ControlModifier);
    EXPECT_EQ(thumbs()->itemSizeFactor(), 110);
    window()->resize(300, 300);
    EXPECT_TRUE(waitFor([&] { return list().verticalScrollBar()->maximum() > 0; }));
    wheel(*list().viewport(), -1, {});
    EXPECT_GT(thumbs()->grid().scrollPosition(), 0);
    EXPECT_EQ(thumbs()->grid().scrollPosition(), list().verticalScrollBar()->value());
    QTest::keyClick(&list(), Qt::Key_End);
    EXPECT_EQ(list().verticalScrollBar()->value(), list().verticalScrollBar()->maximum());
}

TEST_F(Thumbs, ToolbarAndItsSettings) {
    ASSERT_NO_FATAL_FAILURE(openThumbs());
    auto* const bar = window()->findChild<QToolBar*>();
    const auto action = [&](const char* key) { return window()->findChild<QAction*>(QLatin1String(key)); };
    EXPECT_EQ(bar->iconSize(), QSize(32, 32));
    EXPECT_EQ(bar->toolButtonStyle(), Qt::ToolButtonIconOnly);
    for (const char* key : {"LARGER", "SMALLER", "SELECTALL", "PRINT"}) {
        EXPECT_FALSE(action(key)->icon().isNull()) << key;
        EXPECT_FALSE(action(key)->toolTip().isEmpty()) << key;
    }
    action("LARGER")->trigger();
    EXPECT_EQ(thumbs()->itemSizeFactor(), 110);
    EXPECT_FALSE(action("PRINT")->isEnabled()) << "nothing is selected";
    action("SELECTALL")->trigger();
    EXPECT_EQ(thumbs()->selectedPages().size(), 12U);
    EXPECT_TRUE(action("PRINT")->isEnabled());
    for (const char* key : {"TOOLBAR", "LARGEBUTTONS", "BUTTONCAPTIONS"})
        thumbs()->run(key);
    EXPECT_FALSE(bar->isVisible());
    EXPECT_EQ(bar->iconSize(), QSize(16, 16));
    EXPECT_EQ(bar->toolButtonStyle(), Qt::ToolButtonTextUnderIcon);
    window()->resize(500, 400);
    window()->move(40, 50);
    ASSERT_TRUE(waitFor([&] { return window()->size() == QSize(500, 400); }));
    view.reset();
    EXPECT_EQ(window(), nullptr);
    makeView();
    ASSERT_NO_FATAL_FAILURE(openThumbs());
    EXPECT_FALSE(window()->findChild<QToolBar*>()->isVisible());
    EXPECT_EQ(thumbs()->itemSizeFactor(), 110);
    EXPECT_EQ(window()->size(), QSize(500, 400));
}

TEST_F(Thumbs, AFailedPageSaysWhyAndTriesAgain) {
    view->setThumbsAvailable(true);
    view->LoadDocumentByDocID(sample::ManyPages, 1);
    ASSERT_TRUE(waitForPage(1));
    engine.setFaults("http:GP=503");
    view->action(QStringLiteral("THUMBS"))->trigger();
    ASSERT_TRUE(waitFor([&] { return thumbs()->state(3) == ThumbState::Failed; }));
    ASSERT_TRUE(waitForThumbs());
    keepPicture(*window(), QStringLiteral("thumbs-failed"));
    EXPECT_TRUE(view->isPageDisplayed());
    EXPECT_TRUE(boxes.texts().isEmpty());
    QHelpEvent help(QEvent::ToolTip, middle(3), list().viewport()->mapToGlobal(middle(3)));
    QApplication::sendEvent(list().viewport(), &help);
    EXPECT_TRUE(QToolTip::text().contains(QStringLiteral("503"))) << QToolTip::text().toStdString();
    EXPECT_TRUE(QToolTip::text().endsWith(QStringLiteral("Click to try again.")));
    engine.setFaults("");
    click(3);
    EXPECT_TRUE(waitFor([&] { return thumbs()->state(3) == ThumbState::Shown; }));
}

TEST_F(Thumbs, AnotherDocumentAndNone) {
    ASSERT_NO_FATAL_FAILURE(openThumbs());
    ASSERT_TRUE(waitForThumbs());
    view->Clear();
    EXPECT_EQ(window()->windowTitle(), QStringLiteral("Thumbnails"));
    keepPicture(*window(), QStringLiteral("thumbs-none"));
    view->LoadDocumentByDocID(sample::OtherDocument, 1);
    ASSERT_TRUE(waitForPage(1));
    EXPECT_EQ(thumbs()->grid().itemCount(), view->pageCount());
    EXPECT_TRUE(window()->windowTitle().endsWith(QStringLiteral("1002")));
}

/// A document of 2,000 pages, each the same file.
class ManyThumbs : public ThumbsFixture {
protected:
    static constexpr int Count = 2000;

    ManyThumbs() {
        const QString document = folder.filePath(QStringLiteral("7"));
        QDir().mkpath(document);
        const QDir pages(QStringLiteral(PIXMO_SAMPLES "/1001"));
        const std::string page = document.toStdString() + "/p0001.tif";
        QFile::copy(pages.filePath(pages.entryList(QDir::Files).value(0)), QString::fromStdString(page));
        for (int number = 2; number <= Count; ++number)
            std::filesystem::create_hard_link(
                page,
                (document + QStringLiteral("/p%1.tif").arg(number, 4, 10, QLatin1Char('0'))).toStdString());
        many = std::make_unique<EngineProcess>(QStringList(), folder.path());
        view->setEngineAddress(many->address());
    }

    QTemporaryDir folder;
    std::unique_ptr<EngineProcess> many;
};

TEST_F(ManyThumbs, OnlyWhatIsSeenIsLoaded) {
    ASSERT_NO_FATAL_FAILURE(openThumbs(7));
    window()->resize(1400, 1000);
    ASSERT_TRUE(waitFor([&] { return list().width() == 1400; }));
    ASSERT_TRUE(waitForThumbs());
    EXPECT_EQ(thumbs()->grid().itemCount(), Count);
    keepPicture(*window(), QStringLiteral("thumbs-2000"));
    const int seen = thumbs()->grid().visible(1).end;
    ASSERT_TRUE(waitFor([&] { return view->isIdle(); }));
    EXPECT_LE(many->requests("GP"), seen + thumbs()->grid().columns());
    QTest::keyClick(&list(), Qt::Key_End);
    ASSERT_TRUE(waitForThumbs());
    EXPECT_EQ(thumbs()->state(Count), ThumbState::Shown);
    EXPECT_EQ(thumbs()->state(Count / 2), ThumbState::Empty);
}

// The host ends the viewer when a thumbnail makes it turn the page.
TEST_F(Thumbs, TheViewerEndsInsideAnEventOfTheWindow) {
    ASSERT_NO_FATAL_FAILURE(openThumbs());
    ASSERT_TRUE(waitForThumbs());
    QObject::connect(view.get(), &ImageView::PageChanged, view.get(), [this] { view.reset(); });
    const QPointer<ThumbsWindow> thumbsWindow = window();
    QTest::keyClick(&list(), Qt::Key_End);
    QTest::keyClick(&list(), Qt::Key_Return);
    EXPECT_TRUE(waitFor([&] { return !view; }));
    EXPECT_TRUE(waitFor([&] { return !thumbsWindow; }));
}

TEST_F(Thumbs, AccessibleAsAList) {
    ASSERT_NO_FATAL_FAILURE(openThumbs());
    ASSERT_TRUE(waitForThumbs());
    QAccessibleInterface* const interface = QAccessible::queryAccessibleInterface(&list());
    ASSERT_TRUE(interface);
    EXPECT_EQ(interface->role(), QAccessible::List);
    EXPECT_EQ(interface->text(QAccessible::Name), QStringLiteral("Thumbnails"));
    ASSERT_EQ(interface->childCount(), sample::ManyPagesCount);
    click(2);
    QAccessibleInterface* const second = interface->child(1);
    EXPECT_EQ(second->text(QAccessible::Name), QStringLiteral("Page 2"));
    EXPECT_EQ(second->role(), QAccessible::ListItem);
    EXPECT_TRUE(second->state().selected);
    EXPECT_FALSE(interface->child(2)->state().selected);
    EXPECT_EQ(interface->indexOfChild(second), 1);
    EXPECT_EQ(interface->childAt(second->rect().center().x(), second->rect().center().y()), second);
    EXPECT_EQ(second->parent(), interface);
    list().setFocus();
    window()->activateWindow();
    ASSERT_TRUE(waitFor([&] { return list().hasFocus(); }));
    EXPECT_EQ(interface->focusChild(), second);
    second->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    EXPECT_FALSE(second->state().selected);
    second->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_TRUE(waitForPage(2));
    EXPECT_EQ(interface->child(12), nullptr);
}

} // namespace
} // namespace pixmo::qt
