#include "faces/qt/windows/thumbsview.h"
#include "faces/qt/windows/thumbswindow.h"
#include "tests/qt/openwindows.h"
#include "tests/qt/qtdriver.h"
#include "tests/qt/uithread.h"

#include <QAccessible>
#include <QToolBar>
#include <gtest/gtest.h>

// The window of the thumbnails.
namespace pixmo::qt {

using namespace behaviour;

void QtDriver::turnTo(Window window) {
    onUi([&] {
        thumbs_ = window == Window::Thumbnails ? qobject_cast<ThumbsWindow*>(standingDialog()) : nullptr;
        EXPECT_EQ(thumbs_ != nullptr, window == Window::Thumbnails);
    });
}

QAbstractScrollArea& QtDriver::page() const {
    return thumbs_ ? thumbs_->view() : *view().findChild<QAbstractScrollArea*>(QStringLiteral("lvrImage"));
}

QToolBar& QtDriver::bar() const {
    const QWidget& window = thumbs_ ? static_cast<QWidget&>(*thumbs_) : view();
    return *window.findChild<QToolBar*>(QStringLiteral("tlbImage"));
}

std::pair<int32_t, int32_t> QtDriver::dialogPlace() {
    return onUi([] {
        const QPoint place = standingDialog() ? standingDialog()->pos() : QPoint();
        return std::pair<int32_t, int32_t>(place.x(), place.y());
    });
}

void QtDriver::hold(int modifiers) {
    input_.hold(held_, false);
    input_.hold(modifiers, true);
    held_ = modifiers;
}

std::vector<ShownThumb> QtDriver::thumbs() {
    return onUi([this] {
        const QAccessibleInterface* const list = QAccessible::queryAccessibleInterface(&page());
        const QPoint corner = page().viewport()->mapToGlobal(QPoint());
        EXPECT_EQ(list->role(), QAccessible::List);
        std::vector<ShownThumb> shown;
        for (int index = 0; index < list->childCount(); ++index) {
            const QAccessibleInterface& item = *list->child(index);
            const QRect place = item.rect().translated(-corner);
            shown.push_back({item.text(QAccessible::Name).toStdString(),
                             item.text(QAccessible::Description).toStdString(), item.state().selected != 0,
                             list->focusChild() == &item, place.x(), place.y(), place.width(),
                             place.height()});
        }
        return shown;
    });
}

} // namespace pixmo::qt
