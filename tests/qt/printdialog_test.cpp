#include "faces/qt/widget/imageviewprivate.h"
#include "tests/qt/pdffile.h"
#include "tests/qt/viewfixture.h"

#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
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

TEST_F(PrintWindow, PrintersAreChosenFromAList) {
    print({{"dlgPrint",
            [](QDialog& window) {
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
                QTest::keyClick(&window, Qt::Key_Return);
            }}});
    EXPECT_EQ(file.pageCount(), 1);
    EXPECT_EQ(view->property("PrintPageSelection").toString(), QStringLiteral("2"));
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
