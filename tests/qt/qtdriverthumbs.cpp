#include "faces/qt/windows/thumbsview.h"
#include "faces/qt/windows/thumbswindow.h"
#include "tests/qt/openwindows.h"
#include "tests/qt/qtdriver.h"
#include "tests/qt/uithread.h"

#include <QAccessible>
#include <QToolBar>
#include <gtest/gtest.h>

// The window of the thumbnails.
namespace pixmo::behaviour {

using namespace qt;

void FaceDriver::turnTo(Window window) {
    onUi([&] {
        my_->thumbs = window == Window::Thumbnails ? qobject_cast<ThumbsWindow*>(standingDialog()) : nullptr;
        EXPECT_EQ(my_->thumbs != nullptr, window == Window::Thumbnails);
    });
}

QAbstractScrollArea& FaceDriver::Hands::page() const {
    return thumbs ? thumbs->view() : *view().findChild<QAbstractScrollArea*>(QStringLiteral("lvrImage"));
}

QToolBar& FaceDriver::Hands::bar() const {
    const QWidget& window = thumbs ? static_cast<QWidget&>(*thumbs) : view();
    return *window.findChild<QToolBar*>(QStringLiteral("tlbImage"));
}

std::pair<int32_t, int32_t> FaceDriver::dialogPlace() {
    return onUi([] {
        const QPoint place = standingDialog() ? standingDialog()->pos() : QPoint();
        return std::pair<int32_t, int32_t>(place.x(), place.y());
    });
}

void FaceDriver::hold(int modifiers) {
    my_->input.hold(my_->held, false);
    my_->input.hold(modifiers, true);
    my_->held = modifiers;
}

std::vector<ShownThumb> FaceDriver::thumbs() {
    return onUi([this] {
        const QAccessibleInterface* const list = QAccessible::queryAccessibleInterface(&my_->page());
        const QPoint corner = my_->page().viewport()->mapToGlobal(QPoint());
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

} // namespace pixmo::behaviour
