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
namespace pixmo::behaviour {

using namespace qt;

namespace {

QAbstractButton* firstButtonOf(const QWidget& window, const std::vector<std::string>& texts) {
    for (const std::string& text : texts)
        if (QAbstractButton* const button = buttonOf(window, text))
            return button;
    return nullptr;
}

} // namespace

std::optional<QPoint> FaceDriver::Hands::placeOf(const QWidget* widget) {
    if (!widget || !widget->isVisible())
        return std::nullopt;
    QPoint place = widget->rect().center();
    // An option answers where its text is, which begins at its left end.
    if (qobject_cast<const QRadioButton*>(widget))
        place.setX(place.y());
    return widget->mapToGlobal(place);
}

QPoint FaceDriver::Hands::onPage(int32_t x, int32_t y) const {
    return page().viewport()->mapToGlobal(QPoint(x, y));
}

void FaceDriver::Hands::moveOnPage(int32_t x, int32_t y) {
    input.moveTo(onUi([&] { return onPage(x, y); }));
}

bool FaceDriver::Hands::pointAt(const Find& find) {
    std::optional<QPoint> pointedAt;
    // A window that has just opened may still be moved: what is under the pointer must stay there.
    return waitUntil([&] {
        const std::optional<QPoint> place = onUi(find);
        const bool stays = place && place == pointedAt;
        if (place && !stays)
            input.moveTo(*place);
        pointedAt = place;
        return stays;
    });
}

void FaceDriver::Hands::clickAt(const Find& find, Mouse button) {
    if (!pointAt(find)) {
        ADD_FAILURE() << "there is nothing to click";
        return;
    }
    input.button(button, true);
    input.button(button, false);
}

void FaceDriver::press(int keyCode, int modifiers) {
    my_->input.press(keyCode, modifiers);
}

void FaceDriver::type(const std::string& text) {
    my_->input.type(text);
}

void FaceDriver::click(int32_t x, int32_t y, Mouse button) {
    my_->clickAt([&] { return std::optional(my_->onPage(x, y)); }, button);
}

void FaceDriver::doubleClick(int32_t x, int32_t y) {
    constexpr int patient = 2000;
    onUi([] { QGuiApplication::styleHints()->setMouseDoubleClickInterval(patient); });
    const Hands::Find place = [&] { return std::optional(my_->onPage(x, y)); };
    my_->clickAt(place);
    my_->clickAt(place);
    onUi([] { QGuiApplication::styleHints()->setMouseDoubleClickInterval(0); });
}

void FaceDriver::drag(int32_t fromX, int32_t fromY, int32_t toX, int32_t toY, Mouse button) {
    constexpr int steps = 4;
    my_->moveOnPage(fromX, fromY);
    my_->input.button(button, true);
    for (int step = 1; step <= steps; ++step)
        my_->moveOnPage(fromX + (toX - fromX) * step / steps, fromY + (toY - fromY) * step / steps);
}

void FaceDriver::release(Mouse button) {
    my_->input.button(button, false);
}

void FaceDriver::wheel(int32_t x, int32_t y, int notches, int modifiers) {
    my_->moveOnPage(x, y);
    my_->input.wheel(notches, modifiers);
}

void FaceDriver::clickButton(const std::string& key) {
    my_->clickAt([&]() -> std::optional<QPoint> {
        const QToolBar& toolBar = my_->bar();
        for (QAction* action : toolBar.actions())
            if (action->objectName().toStdString() == key)
                return my_->placeOf(toolBar.widgetForAction(action));
        return std::nullopt;
    });
}

void FaceDriver::clickReadOut() {
    my_->clickAt([this] { return my_->placeOf(my_->view().findChild<QLabel*>(QStringLiteral("txtPage"))); });
}

void FaceDriver::clickHostField(const std::string& name) {
    my_->clickAt([&] { return my_->placeOf(my_->host->field(QString::fromStdString(name))); });
}

void FaceDriver::openToolbarMenu() {
    // Behind the last button.
    my_->clickAt(
        [this] {
            const QToolBar& toolBar = my_->bar();
            return std::optional(toolBar.mapToGlobal(QPoint(toolBar.width() - 4, toolBar.height() / 2)));
        },
        Mouse::Right);
}

void FaceDriver::openPageMenu() {
    my_->clickAt([this] { return my_->placeOf(my_->page().viewport()); }, Mouse::Right);
}

std::optional<std::vector<ShownEntry>> FaceDriver::menu() {
    return onUi([]() -> std::optional<std::vector<ShownEntry>> {
        const QMenu* const menu = standingMenu();
        return menu ? std::optional(look(*menu)) : std::nullopt;
    });
}

void FaceDriver::choose(const std::string& text) {
    my_->clickAt([&]() -> std::optional<QPoint> {
        const QMenu* const menu = standingMenu();
        if (!menu)
            return std::nullopt;
        for (QAction* action : menu->actions())
            if (action->text().section(QLatin1Char('\t'), 0, 0).toStdString() == text)
                return menu->mapToGlobal(menu->actionGeometry(action).center());
        return std::nullopt;
    });
}

std::optional<ShownBox> FaceDriver::answer(const std::vector<std::string>& buttons) {
    QPointer<QMessageBox> box;
    auto shown = onUi([&]() -> std::optional<ShownBox> {
        box = standingBox();
        return box ? std::optional(look(*box)) : std::nullopt;
    });
    if (!shown)
        return std::nullopt;
    my_->clickAt([&] { return box ? my_->placeOf(firstButtonOf(*box, buttons)) : std::nullopt; });
    const bool isGone = waitUntil([&] { return onUi([&] { return !box || !box->isVisible(); }); });
    EXPECT_TRUE(isGone) << "the message box stays:\n" << shown->text;
    return shown;
}

std::string FaceDriver::dialog() {
    return onUi([] {
        const QWidget* const window = standingDialog();
        return window ? dialogName(*window) : std::string();
    });
}

std::string FaceDriver::dialogTitle() {
    return onUi([] {
        const QWidget* const window = standingDialog();
        return window ? window->windowTitle().toStdString() : std::string();
    });
}

std::string FaceDriver::dialogText(const std::string& field) {
    return onUi([&] {
        const QWidget* const window = standingDialog();
        return window ? textOf(*window, field) : std::string();
    });
}

std::string FaceDriver::selectedText(const std::string& field) {
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

ShownField FaceDriver::dialogField(const std::string& field) {
    return onUi([&] {
        const QWidget* const window = standingDialog();
        const QWidget* const found = window ? fieldOf(*window, field) : nullptr;
        const auto* const button = qobject_cast<const QAbstractButton*>(found);
        return found ? ShownField{found->isVisible(), found->isEnabled(), button && button->isChecked()}
                     : ShownField();
    });
}

void FaceDriver::clickDialogField(const std::string& field) {
    my_->input.waitForPlace();
    my_->clickAt([&] {
        const QWidget* const window = standingDialog();
        return window ? my_->placeOf(fieldOf(*window, field)) : std::nullopt;
    });
}

std::pair<int32_t, int32_t> FaceDriver::dialogSize() {
    return onUi([] {
        const QWidget* const window = standingDialog();
        return window ? std::pair(window->width(), window->height()) : std::pair(0, 0);
    });
}

void FaceDriver::resizeDialog(int32_t width, int32_t height) {
    onUi([&] { standingDialog()->resize(width, height); });
}

std::string FaceDriver::clipboardText() {
    return onUi([] { return QGuiApplication::clipboard()->text().toStdString(); });
}

void FaceDriver::setDialogText(const std::string& field, const std::string& text) {
    onUi([&] {
        const QWidget* const window = standingDialog();
        auto* const edit = window ? window->findChild<QLineEdit*>(QString::fromStdString(field)) : nullptr;
        ASSERT_TRUE(edit) << "no field " << field;
        edit->selectAll();
        edit->insert(QString::fromStdString(text));
    });
}

void FaceDriver::pressDialogButton(const std::string& button) {
    if (button.empty()) {
        startOnUi([] {
            if (QWidget* const window = standingDialog())
                window->close();
        });
        onUi([] {});
        return;
    }
    my_->input.waitForPlace();
    my_->clickAt([&] {
        const QWidget* const window = standingDialog();
        return window ? my_->placeOf(buttonOf(*window, button)) : std::nullopt;
    });
}

} // namespace pixmo::behaviour
