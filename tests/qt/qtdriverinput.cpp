#include "tests/qt/openwindows.h"
#include "tests/qt/qtdriver.h"
#include "tests/qt/uithread.h"

#include <QAbstractButton>
#include <QAbstractScrollArea>
#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPointer>
#include <QRadioButton>
#include <QStyleHints>
#include <QToolBar>
#include <gtest/gtest.h>

// What the user does to the control and its windows.
namespace pixmo::qt {

using namespace behaviour;

namespace {

QAbstractButton* firstButtonOf(const QWidget& window, const std::vector<std::string>& texts) {
    for (const std::string& text : texts)
        if (QAbstractButton* const button = buttonOf(window, text))
            return button;
    return nullptr;
}

} // namespace

std::optional<QPoint> QtDriver::placeOf(const QWidget* widget) {
    if (!widget || !widget->isVisible())
        return std::nullopt;
    QPoint place = widget->rect().center();
    // An option answers where its text is, which begins at its left end.
    if (qobject_cast<const QRadioButton*>(widget))
        place.setX(place.y());
    return widget->mapToGlobal(place);
}

QPoint QtDriver::onPage(int32_t x, int32_t y) const {
    return page().viewport()->mapToGlobal(QPoint(x, y));
}

void QtDriver::moveOnPage(int32_t x, int32_t y) {
    input_.moveTo(onUi([&] { return onPage(x, y); }));
}

bool QtDriver::pointAt(const Find& find) {
    std::optional<QPoint> pointedAt;
    // A window that has just opened may still be moved: what is under the pointer must stay there.
    return waitUntil([&] {
        const std::optional<QPoint> place = onUi(find);
        const bool stays = place && place == pointedAt;
        if (place && !stays)
            input_.moveTo(*place);
        pointedAt = place;
        return stays;
    });
}

void QtDriver::clickAt(const Find& find, Mouse button) {
    if (!pointAt(find)) {
        ADD_FAILURE() << "there is nothing to click";
        return;
    }
    input_.button(button, true);
    input_.button(button, false);
}

void QtDriver::press(int keyCode, int modifiers) {
    input_.press(keyCode, modifiers);
}

void QtDriver::type(const std::string& text) {
    input_.type(text);
}

void QtDriver::click(int32_t x, int32_t y, Mouse button) {
    clickAt([&] { return std::optional(onPage(x, y)); }, button);
}

void QtDriver::doubleClick(int32_t x, int32_t y) {
    constexpr int patient = 2000;
    onUi([] { QGuiApplication::styleHints()->setMouseDoubleClickInterval(patient); });
    const Find place = [&] { return std::optional(onPage(x, y)); };
    clickAt(place);
    clickAt(place);
    onUi([] { QGuiApplication::styleHints()->setMouseDoubleClickInterval(0); });
}

void QtDriver::drag(int32_t fromX, int32_t fromY, int32_t toX, int32_t toY, Mouse button) {
    constexpr int steps = 4;
    moveOnPage(fromX, fromY);
    input_.button(button, true);
    for (int step = 1; step <= steps; ++step)
        moveOnPage(fromX + (toX - fromX) * step / steps, fromY + (toY - fromY) * step / steps);
}

void QtDriver::release(Mouse button) {
    input_.button(button, false);
}

void QtDriver::wheel(int32_t x, int32_t y, int notches, int modifiers) {
    moveOnPage(x, y);
    input_.wheel(notches, modifiers);
}

void QtDriver::clickButton(const std::string& key) {
    clickAt([&]() -> std::optional<QPoint> {
        const QToolBar& bar = this->bar();
        for (QAction* action : bar.actions())
            if (action->objectName().toStdString() == key)
                return placeOf(bar.widgetForAction(action));
        return std::nullopt;
    });
}

void QtDriver::clickReadOut() {
    clickAt([this] { return placeOf(view().findChild<QLabel*>(QStringLiteral("txtPage"))); });
}

void QtDriver::clickHostField(const std::string& name) {
    clickAt([&] { return placeOf(host_->field(QString::fromStdString(name))); });
}

void QtDriver::openToolbarMenu() {
    // Behind the last button.
    clickAt(
        [this] {
            const QToolBar& bar = this->bar();
            return std::optional(bar.mapToGlobal(QPoint(bar.width() - 4, bar.height() / 2)));
        },
        Mouse::Right);
}

void QtDriver::openPageMenu() {
    clickAt([this] { return placeOf(page().viewport()); }, Mouse::Right);
}

std::optional<std::vector<ShownEntry>> QtDriver::menu() {
    return onUi([]() -> std::optional<std::vector<ShownEntry>> {
        const QMenu* const menu = standingMenu();
        return menu ? std::optional(look(*menu)) : std::nullopt;
    });
}

void QtDriver::choose(const std::string& text) {
    clickAt([&]() -> std::optional<QPoint> {
        const QMenu* const menu = standingMenu();
        if (!menu)
            return std::nullopt;
        for (QAction* action : menu->actions())
            if (action->text().section(QLatin1Char('\t'), 0, 0).toStdString() == text)
                return menu->mapToGlobal(menu->actionGeometry(action).center());
        return std::nullopt;
    });
}

std::optional<ShownBox> QtDriver::answer(const std::vector<std::string>& buttons) {
    QPointer<QMessageBox> box;
    auto shown = onUi([&]() -> std::optional<ShownBox> {
        box = standingBox();
        return box ? std::optional(look(*box)) : std::nullopt;
    });
    if (!shown)
        return std::nullopt;
    clickAt([&] { return box ? placeOf(firstButtonOf(*box, buttons)) : std::nullopt; });
    const bool isGone = waitUntil([&] { return onUi([&] { return !box || !box->isVisible(); }); });
    EXPECT_TRUE(isGone) << "the message box stays:\n" << shown->text;
    return shown;
}

std::string QtDriver::dialog() {
    return onUi([] {
        const QWidget* const window = standingDialog();
        return window ? dialogName(*window) : std::string();
    });
}

std::string QtDriver::dialogTitle() {
    return onUi([] {
        const QWidget* const window = standingDialog();
        return window ? window->windowTitle().toStdString() : std::string();
    });
}

std::string QtDriver::dialogText(const std::string& field) {
    return onUi([&] {
        const QWidget* const window = standingDialog();
        return window ? textOf(*window, field) : std::string();
    });
}

std::string QtDriver::selectedText(const std::string& field) {
    return onUi([&] {
        const QWidget* const window = standingDialog();
        const QWidget* const found = window ? fieldOf(*window, field) : nullptr;
        EXPECT_TRUE(found) << "no field " << field;
        if (const auto* const edit = qobject_cast<const QPlainTextEdit*>(found))
            return edit->textCursor().selectedText().toStdString();
        const auto* const edit = qobject_cast<const QLineEdit*>(found);
        return edit ? edit->selectedText().toStdString() : std::string();
    });
}

ShownField QtDriver::dialogField(const std::string& field) {
    return onUi([&] {
        const QWidget* const window = standingDialog();
        const QWidget* const found = window ? fieldOf(*window, field) : nullptr;
        const auto* const button = qobject_cast<const QAbstractButton*>(found);
        return found ? ShownField{found->isVisible(), found->isEnabled(), button && button->isChecked()}
                     : ShownField();
    });
}

void QtDriver::clickDialogField(const std::string& field) {
    input_.waitForPlace();
    clickAt([&] {
        const QWidget* const window = standingDialog();
        return window ? placeOf(fieldOf(*window, field)) : std::nullopt;
    });
}

std::pair<int32_t, int32_t> QtDriver::dialogSize() {
    return onUi([] {
        const QWidget* const window = standingDialog();
        return window ? std::pair(window->width(), window->height()) : std::pair(0, 0);
    });
}

void QtDriver::resizeDialog(int32_t width, int32_t height) {
    onUi([&] { standingDialog()->resize(width, height); });
}

std::string QtDriver::clipboardText() {
    return onUi([] { return QGuiApplication::clipboard()->text().toStdString(); });
}

void QtDriver::setDialogText(const std::string& field, const std::string& text) {
    onUi([&] {
        const QWidget* const window = standingDialog();
        auto* const edit = window ? window->findChild<QLineEdit*>(QString::fromStdString(field)) : nullptr;
        ASSERT_TRUE(edit) << "no field " << field;
        edit->selectAll();
        edit->insert(QString::fromStdString(text));
    });
}

void QtDriver::pressDialogButton(const std::string& button) {
    if (button.empty()) {
        startOnUi([] {
            if (QWidget* const window = standingDialog())
                window->close();
        });
        onUi([] {});
        return;
    }
    input_.waitForPlace();
    clickAt([&] {
        const QWidget* const window = standingDialog();
        return window ? placeOf(buttonOf(*window, button)) : std::nullopt;
    });
}

} // namespace pixmo::qt
