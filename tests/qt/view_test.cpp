#include "tests/qt/viewfixture.h"

#include <QAbstractScrollArea>
#include <QAction>
#include <QTest>
#include <QToolBar>

namespace pixmo::qt {
namespace {

class View : public ViewFixture {
protected:
    void open(int pageNumber = 1) {
        view->LoadDocumentByDocID(sample::ManyPages, pageNumber);
        ASSERT_TRUE(waitForPage(pageNumber));
    }
    QAction& action(const char* key) const { return *view->action(QLatin1String(key)); }
};

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

TEST_F(View, TheHostsActionsFollowTheCommands) {
    EXPECT_EQ(view->action(QStringLiteral("NONSENSE")), nullptr);
    EXPECT_FALSE(action("PAGENEXT").isEnabled());
    open(2);
    EXPECT_TRUE(action("PAGENEXT").isEnabled());
    EXPECT_FALSE(action("CANCEL").isEnabled());
    action("PAN").trigger();
    EXPECT_TRUE(action("PAN").isChecked()) << "one of the two is always checked";
    action("SELECTION").trigger();
    EXPECT_FALSE(action("PAN").isChecked());
    EXPECT_TRUE(action("SELECTION").isChecked());
    action("PAGENEXT").trigger();
    EXPECT_TRUE(waitForPage(3));
}

TEST_F(View, AForbiddenCommandCannotBeGiven) {
    open(2);
    view->setCommandForbidden(QStringLiteral("PAGENEXT"), true);
    EXPECT_FALSE(action("PAGENEXT").isVisible());
    EXPECT_FALSE(view->findChild<QToolBar*>()->findChild<QAction*>(QStringLiteral("PAGENEXT"))->isVisible());
    QTest::keyClick(view->findChild<QAbstractScrollArea*>(), Qt::Key_PageDown);
    EXPECT_EQ(view->page(), 2);
}

} // namespace
} // namespace pixmo::qt
