#include "core/control/imageview.h"
#include "faces/qt/widget/imageviewprivate.h"
#include "faces/qt/windows/savepagedialog.h"
#include "tests/qt/viewfixture.h"

#include <QClipboard>
#include <QLineEdit>
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
};

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
