#include "tests/qt/accessible.h"
#include "tests/qt/engineprocess.h"
#include "tests/qt/waiting.h"

#include <gtest/gtest.h>

namespace pixmo::qt {
namespace {

std::string look(const Accessible& object) {
    return (object.role() + QStringLiteral(" of ") + object.parentName()).toStdString();
}

/// The viewer program with a document, met over the accessibility bus as by a screen reader.
class Accessibility : public testing::Test {
protected:
    void SetUp() override {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("QT_LINUX_ACCESSIBILITY_ALWAYS_ON"), QStringLiteral("1"));
        viewer_.setProcessEnvironment(environment);
        viewer_.start(QStringLiteral(PIXMO_VIEWER_PROGRAM),
                      {QStringLiteral("--engine"), engine_.address(), QStringLiteral("--doc"),
                       QStringLiteral("1001"), QStringLiteral("--page"), QStringLiteral("3")});
        ASSERT_TRUE(waitFor([this] {
            program = Accessible::program(QStringLiteral("pixmo"));
            return program && page();
        })) << "the viewer is not on the bus";
        ASSERT_TRUE(waitForPage(3)) << qPrintable(page().description());
    }
    void TearDown() override {
        viewer_.terminate();
        EXPECT_TRUE(viewer_.waitForFinished(Patience));
    }

    Accessible page() const { return program.find(QStringLiteral("filler"), QStringLiteral("Page")); }
    Accessible button(const char* name) const {
        return program.find(QStringLiteral("push button"), QLatin1String(name));
    }
    bool waitForPage(int number) const {
        const QString start = QStringLiteral("Page %1 of 12, ").arg(number);
        return waitFor([&] {
            const QString told = page().description();
            return told.startsWith(start) && told.endsWith(QStringLiteral(" %"));
        });
    }
    /// Everything that can take the focus or be pressed has a name.
    void expectNames(const Accessible& below) const {
        const QStringList silent = {QStringLiteral("filler"),   QStringLiteral("panel"),
                                    QStringLiteral("menu bar"), QStringLiteral("scroll bar"),
                                    QStringLiteral("viewport"), QStringLiteral("layered pane")};
        for (const Accessible& each : below.showing()) {
            const QString role = each.role();
            if (!silent.contains(role) || each.states().contains(QStringLiteral("focusable"))) {
                EXPECT_FALSE(each.name().isEmpty()) << look(each);
            }
        }
    }

    Accessible program;

private:
    EngineProcess engine_;
    QProcess viewer_;
};

TEST_F(Accessibility, ThePageIsTold) {
    expectNames(program);
    EXPECT_TRUE(program.find(QStringLiteral("label"), QStringLiteral("Page 3 of 12")));
    button("Next").press();
    EXPECT_TRUE(waitForPage(4)) << qPrintable(page().description());
    const QString before = page().description();
    button("Fit Height").press();
    EXPECT_TRUE(waitFor([&] { return page().description() != before; })) << "another zoom";
    page().grabFocus();
    EXPECT_TRUE(waitFor([this] { return page().states().contains(QStringLiteral("focused")); }));
}

TEST_F(Accessibility, DialogsTellTheirParts) {
    button("Goto").press();
    ASSERT_TRUE(waitFor(
        [this] { return bool(program.find(QStringLiteral("dialog"), QStringLiteral("Go to Page"))); }));
    const Accessible dialog = program.find(QStringLiteral("dialog"), QStringLiteral("Go to Page"));
    expectNames(dialog);
    const Accessible number = dialog.find(QStringLiteral("text"), QStringLiteral("Page (1 to 12)"));
    ASSERT_TRUE(number);
    EXPECT_TRUE(number.states().contains(QStringLiteral("focused")));
    dialog.find(QStringLiteral("push button"), QStringLiteral("Cancel")).press();
    EXPECT_TRUE(waitFor([this] { return !program.find(QStringLiteral("dialog")); }));
}

TEST_F(Accessibility, ThumbnailsAreAList) {
    button("Thumbs").press();
    ASSERT_TRUE(
        waitFor([this] { return bool(program.find(QStringLiteral("list"), QStringLiteral("Thumbnails"))); }));
    const Accessible list = program.find(QStringLiteral("list"), QStringLiteral("Thumbnails"));
    const std::vector<Accessible> pages = list.children();
    ASSERT_EQ(pages.size(), 12U);
    EXPECT_EQ(pages[4].name(), QStringLiteral("Page 5"));
    EXPECT_EQ(pages[4].role(), QStringLiteral("list item"));
    expectNames(program);
    pages[4].press();
    EXPECT_TRUE(waitForPage(5));
}

} // namespace
} // namespace pixmo::qt
