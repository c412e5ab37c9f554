#include "core/control/imageview.h"
#include "faces/qt/aboutdialog.h"
#include "faces/qt/gotodialog.h"
#include "faces/qt/imageviewprivate.h"
#include "faces/qt/logdialog.h"
#include "faces/qt/savepagedialog.h"
#include "tests/qt/thumbsfixture.h"

#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QTemporaryDir>
#include <functional>

namespace pixmo::qt {
namespace {

class Windows : public ViewFixture {
protected:
    void open(int document = sample::ManyPages, int page = 1) {
        view->LoadDocumentByDocID(document, page);
        ASSERT_TRUE(waitForPage(page));
    }

    std::shared_ptr<pixmo::ImageView> control() const { return ImageViewPrivate::of(*view).control(); }

    /// Gives the command and acts in the window that it opens.
    template <typename Dialog>
    void inWindow(const char* command, const std::function<void(Dialog&)>& act) {
        bool opened = false;
        QTimer timer;
        QObject::connect(&timer, &QTimer::timeout, &timer, [&] {
            auto* const dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
            if (!dialog || !dialog->isVisible() || opened)
                return;
            opened = true;
            act(*dialog);
        });
        timer.start(10);
        control()->runCommand(command);
        EXPECT_TRUE(opened) << command;
    }

    static QPushButton* button(const QWidget& dialog, const QString& text) {
        for (auto* const each : dialog.findChildren<QPushButton*>())
            if (each->text().remove(QLatin1Char('&')) == text)
                return each;
        return nullptr;
    }
};

TEST_F(Windows, GoToPage) {
    open(sample::ManyPages, 3);
    inWindow<GotoDialog>("PAGEGOTO", [](GotoDialog& dialog) {
        keepPicture(dialog, QStringLiteral("goto"));
        auto* const number = dialog.findChild<QLineEdit*>(QStringLiteral("txtPageNumber"));
        EXPECT_EQ(dialog.findChild<QLabel*>()->text(), QStringLiteral("&Page (1 to 12):"));
        EXPECT_EQ(number->accessibleName(), QStringLiteral("Page (1 to 12)"));
        EXPECT_EQ(number->selectedText(), QStringLiteral("3"));
        EXPECT_EQ(dialog.focusWidget(), number);
        QTest::keyClicks(number, QStringLiteral("a-.9x "));
        EXPECT_EQ(number->text(), QStringLiteral("9"));
        QTest::keyClick(number, Qt::Key_Backspace);
        QTest::keyClicks(number, QStringLiteral("0007"));
        QTest::keyClick(number, Qt::Key_Return);
    });
    EXPECT_TRUE(waitForPage(7));
    inWindow<GotoDialog>("PAGEGOTO", [](GotoDialog& dialog) {
        auto* const number = dialog.findChild<QLineEdit*>(QStringLiteral("txtPageNumber"));
        QTest::keyClicks(number, QStringLiteral("99999"));
        QTest::keyClick(number, Qt::Key_Return);
    });
    EXPECT_TRUE(waitForPage(12)) << "limited to the document";
    inWindow<GotoDialog>("PAGEGOTO", [](GotoDialog& dialog) {
        auto* const number = dialog.findChild<QLineEdit*>(QStringLiteral("txtPageNumber"));
        QTest::keyClicks(number, QStringLiteral("4"));
        QTest::keyClick(number, Qt::Key_Escape);
    });
    EXPECT_TRUE(waitUntilIdle());
    EXPECT_EQ(view->page(), 12);
}

TEST_F(Windows, AboutAndImageInformation) {
    inWindow<AboutDialog>("ABOUT", [](AboutDialog& dialog) {
        keepPicture(dialog, QStringLiteral("about"));
        EXPECT_EQ(dialog.findChild<QLabel*>(QStringLiteral("lblVersion"))->text(),
                  QStringLiteral("Version 1.0.0"));
        EXPECT_TRUE(dialog.findChild<QLabel*>(QStringLiteral("lblDescription"))
                        ->text()
                        .contains(QStringLiteral("Vellane document imaging system")));
        QTest::keyClick(&dialog, Qt::Key_Return);
    });
    open();
    inWindow<AboutDialog>("IMAGEINFO", [](AboutDialog& dialog) {
        keepPicture(dialog, QStringLiteral("imageinfo"));
        const QString text = dialog.findChild<QLabel*>(QStringLiteral("lblInformation"))->text();
        EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Image Information"));
        EXPECT_EQ(text,
                  QStringLiteral("Image Size: 8.50\" x 11.00\"\nImage pixels: 2550 x 3300\n"
                                 "Resolution: 300 x 300 dpi\nColor Depth: 1 bit per pixel\nDocID: 1001"));
        QTest::mouseClick(button(dialog, QStringLiteral("Copy")), Qt::LeftButton);
        EXPECT_EQ(QApplication::clipboard()->text(), text);
        EXPECT_TRUE(dialog.isVisible());
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
}

TEST_F(Windows, LogWithSearch) {
    const QTemporaryDir folder;
    view->setLogFileName(folder.filePath(QStringLiteral("pixmo.log")));
    view->setMinLogLevel(4);
    open();
    inWindow<LogDialog>("SHOWLOG", [&](LogDialog& dialog) {
        auto* const text = dialog.findChild<QPlainTextEdit*>();
        auto* const search = dialog.findChild<QLineEdit*>();
        ASSERT_TRUE(text->toPlainText().contains(QStringLiteral("LoadDocumentByDocID - 1001")));
        EXPECT_TRUE(text->isReadOnly());
        EXPECT_EQ(text->verticalScrollBar()->value(), text->verticalScrollBar()->maximum());
        EXPECT_TRUE(dialog.findChild<QLabel*>()->text().endsWith(QStringLiteral("pixmo.log")));
        QTest::keyClicks(search, QStringLiteral("loaddocumentbydocid"));
        QTest::keyClick(search, Qt::Key_Return);
        EXPECT_TRUE(dialog.isVisible()) << "Enter searches";
        EXPECT_EQ(text->textCursor().selectedText().toLower(), QStringLiteral("loaddocumentbydocid"))
            << "from the end round to the beginning";
        keepPicture(dialog, QStringLiteral("log"));
        const int first = text->textCursor().position();
        QTest::keyClick(search, Qt::Key_F3, Qt::ShiftModifier);
        EXPECT_GE(text->textCursor().position(), first);
        QTest::mouseClick(button(dialog, QStringLiteral("Copy")), Qt::LeftButton);
        EXPECT_EQ(QApplication::clipboard()->text().toLower(), QStringLiteral("loaddocumentbydocid"));
        search->setText(QStringLiteral("nowhere to be found"));
        QTest::mouseClick(button(dialog, QStringLiteral("Next")), Qt::LeftButton);
        EXPECT_EQ(button(dialog, QStringLiteral("Next"))->isDefault(), true);
        dialog.resize(700, 420);
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
    inWindow<LogDialog>("SHOWLOG", [&](LogDialog& dialog) {
        EXPECT_EQ(dialog.size(), QSize(700, 420));
        QTest::mouseClick(button(dialog, QStringLiteral("Close")), Qt::LeftButton);
    });
}

TEST_F(Windows, SavesThePageWhereAndAsTheUserSays) {
    const QTemporaryDir folder;
    open();
    inWindow<SavePageDialog>("SAVEPAGE", [&](SavePageDialog& dialog) {
        EXPECT_TRUE(dialog.chosenPath().endsWith(QStringLiteral("document 1001 page 1.tif")));
        dialog.setDirectory(folder.path());
        auto* const name = dialog.findChild<QLineEdit*>();
        name->setText(QStringLiteral("deed.png"));
        keepPicture(dialog, QStringLiteral("save"));
        QTest::keyClick(name, Qt::Key_Return);
    });
    const QImage saved(folder.filePath(QStringLiteral("deed.png")));
    EXPECT_EQ(saved.size(), QSize(2550, 3300));
    EXPECT_EQ(saved.depth(), 1);
    inWindow<SavePageDialog>("SAVEPAGE", [&](SavePageDialog& dialog) {
        EXPECT_EQ(dialog.directory().canonicalPath(), QDir(folder.path()).canonicalPath());
        EXPECT_TRUE(dialog.chosenPath().endsWith(QStringLiteral("page 1.png"))) << "as the last time";
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files), QStringList{QStringLiteral("deed.png")});
}

TEST_F(Windows, CopiesThePage) {
    open();
    control()->runCommand("COPY");
    const QImage copied = QApplication::clipboard()->image();
    EXPECT_EQ(copied.size(), QSize(2550, 3300));
    EXPECT_EQ(copied.pixel(5, 5) & 0xFFFFFF, 0xFFFFFFU) << "paper";
}

// The host ends the viewer while one of its windows stands.
TEST_F(Windows, EndWithTheViewer) {
    for (const char* command : {"PAGEGOTO", "ABOUT", "IMAGEINFO", "SHOWLOG", "SAVEPAGE"}) {
        SCOPED_TRACE(command);
        open();
        const auto held = control();
        inWindow<QDialog>(command, [this](QDialog&) { view.reset(); });
        EXPECT_FALSE(view);
        makeView();
    }
}

} // namespace
} // namespace pixmo::qt
