#include "faces/qt/widget/imageviewprivate.h"
#include "tests/qt/pdffile.h"
#include "tests/qt/viewfixture.h"

#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QTemporaryDir>

namespace pixmo::qt {
namespace {

/// Acts as the user in windows that run their own loop.
class PrintWindow : public ViewFixture {
protected:
    PrintWindow() {
        ImageViewPrivate::of(*view).printers().setFile(path);
        view->LoadDocumentByDocID(sample::ManyPages, 2);
        EXPECT_TRUE(waitForPage(2));
    }

    /// Gives the command, then does each act in turn in the window of that name once it is there.
    using Act = std::pair<const char*, std::function<void(QDialog&)>>;
    void print(std::vector<Act> acts) {
        size_t next = 0;
        QTimer timer;
        QObject::connect(&timer, &QTimer::timeout, &timer, [&] {
            auto* const window = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            if (next < acts.size() && window && window->objectName() == QLatin1String(acts[next].first))
                acts[next++].second(*window);
        });
        timer.start(20);
        view->action(QStringLiteral("PRINT"))->trigger();
        EXPECT_EQ(next, acts.size());
    }
    static void press(QDialog& window, const char* text) {
        for (QAbstractButton* button : window.findChildren<QAbstractButton*>())
            if (button->text() == QLatin1String(text))
                return button->click();
        ADD_FAILURE() << "no button " << text;
    }

    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("job.pdf"));
    const PdfFile file{path};
};

TEST_F(PrintWindow, HasItsControlsAndPrintsARange) {
    bool before = false;
    print({{"dlgPrint", [&](QDialog& window) {
                EXPECT_EQ(window.windowTitle(), QStringLiteral("Print Document"));
                for (const char* text : {"&All Pages", "C&urrent Page", "&Selected Pages", "Page",
                                         "&Fit to Page", "Print Full &Size (100%)",
                                         "Print &Current View Only", "&Print", "&Cancel", "P&rinters..."}) {
                    bool found = false;
                    for (QAbstractButton* button : window.findChildren<QAbstractButton*>())
                        found = found || button->text() == QLatin1String(text);
                    EXPECT_TRUE(found) << text;
                }
                before = window.findChild<QLineEdit*>(QStringLiteral("txtFromPage"))->isVisible();
                press(window, "More Options");
                auto* const from = window.findChild<QLineEdit*>(QStringLiteral("txtFromPage"));
                EXPECT_TRUE(from->isVisible());
                QTest::keyClicks(from, QStringLiteral("4"));
                QTest::keyClicks(window.findChild<QLineEdit*>(QStringLiteral("txtToPage")),
                                 QStringLiteral("3"));
                QTest::keyClick(&window, Qt::Key_Return);
            }}});
    EXPECT_FALSE(before);
    EXPECT_EQ(file.pageCount(), 2);
    EXPECT_EQ(view->property("PrintPageSelection").toString(), QStringLiteral("3,4"));
    EXPECT_EQ(view->page(), 2);
    print({{"dlgPrint",
            [](QDialog& window) {
                press(window, "Less Options");
                QTimer::singleShot(0, &window, [&window] { press(window, "P&rinters..."); });
            }},
           {"dlgPrinters",
            [](QDialog& window) {
                auto* const list = window.findChild<QListWidget*>();
                EXPECT_EQ(list->currentItem()->text(), QStringLiteral("PDF file"));
                QTest::keyClick(list, Qt::Key_Return);
            }},
           {"dlgPrint", [](QDialog& window) {
                EXPECT_EQ(window.findChild<QLabel*>(QStringLiteral("lblPrinterName"))->text(),
                          QStringLiteral("PDF file"));
                QTest::keyClick(&window, Qt::Key_Escape);
            }}});
    EXPECT_EQ(view->property("PrintPageSelection").toString(), QStringLiteral("3,4"));
}

TEST_F(PrintWindow, ThePreviewFetchesWhatItShows) {
    print({{"dlgPrint",
            [](QDialog& window) {
                press(window, "More Options");
                press(window, "&All Pages");
                QTimer::singleShot(0, &window, [&window] { press(window, "Pre&view..."); });
            }},
           {"PrintPreview",
            [](QDialog& window) {
                auto* const text = window.findChild<QLabel*>(QStringLiteral("sheetText"));
                auto* const sheet = window.findChild<QLabel*>(QStringLiteral("sheet"));
                EXPECT_TRUE(waitFor([&] { return !sheet->pixmap(Qt::ReturnByValue).isNull(); }));
                EXPECT_EQ(text->text(), QStringLiteral("Sheet 1 of 12"));
                const qint64 first = sheet->pixmap(Qt::ReturnByValue).cacheKey();
                QTest::keyClick(&window, Qt::Key_End);
                EXPECT_EQ(text->text(), QStringLiteral("Sheet 12 of 12"));
                EXPECT_TRUE(waitFor([&] { return sheet->pixmap(Qt::ReturnByValue).cacheKey() != first; }));
                press(window, "&Close");
            }},
           {"dlgPrint", [](QDialog& window) {
                press(window, "Less Options");
                press(window, "&Cancel");
            }}});
    EXPECT_EQ(engine.requests("GP"), 3) << "the shown page, the first sheet and the last";
    EXPECT_EQ(view->page(), 2);
    EXPECT_FALSE(QFile::exists(path));
}

TEST_F(PrintWindow, QuickPrintAndTheEndOfTheWidgetWhileItPrints) {
    int finished = -1;
    QObject::connect(view.get(), &ImageView::PrintJobFinish, view.get(),
                     [&](short pages, const QString&) { finished = pages; });
    const QString other = folder.filePath(QStringLiteral("other.pdf"));
    const auto meanwhile = QObject::connect(view.get(), &ImageView::PrintJobBegin, view.get(), [&] {
        EXPECT_EQ(view->PrintToFile(other, {1}, false), 0) << "one job at a time";
    });
    view->action(QStringLiteral("QUICKPRINT"))->trigger();
    QObject::disconnect(meanwhile);
    EXPECT_FALSE(QFile::exists(other));
    EXPECT_EQ(finished, 1);
    EXPECT_EQ(file.pageCount(), 1);
    QFile::remove(path);
    QObject::connect(view.get(), &ImageView::PrintJobBegin, view.get(),
                     [&](short, const QString&, bool&) { view.reset(); });
    view->action(QStringLiteral("QUICKPRINT"))->trigger();
    EXPECT_EQ(view, nullptr);
    EXPECT_FALSE(QFile::exists(path));
}

} // namespace
} // namespace pixmo::qt
