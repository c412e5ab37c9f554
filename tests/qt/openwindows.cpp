#include "tests/qt/openwindows.h"

#include "faces/qt/windows/dialogwindow.h"
#include "faces/qt/windows/thumbswindow.h"

#include <QAbstractButton>
#include <QApplication>
#include <QMenu>
#include <QPlainTextEdit>
#include <gtest/gtest.h>

namespace pixmo::qt {

namespace {

QString plain(QString text) {
    return text.remove(QLatin1Char('&'));
}

std::string iconName(QMessageBox::Icon icon) {
    switch (icon) {
    case QMessageBox::Warning:
        return "exclamation";
    case QMessageBox::Critical:
        return "critical";
    case QMessageBox::Information:
        return "information";
    case QMessageBox::Question:
        return "question";
    default:
        return {};
    }
}

} // namespace

QMessageBox* standingBox() {
    auto* const box = qobject_cast<QMessageBox*>(QApplication::activeWindow());
    return box && box->isVisible() ? box : nullptr;
}

QWidget* standingDialog() {
    QWidget* const window = QApplication::activeWindow();
    return window && window->isVisible() && !dialogName(*window).empty() ? window : nullptr;
}

std::string dialogName(const QWidget& window) {
    if (dynamic_cast<const DialogWindow*>(&window))
        return window.objectName().toStdString();
    return dynamic_cast<const ThumbsWindow*>(&window) ? "dlgThumbs" : "";
}

QMenu* standingMenu() {
    return qobject_cast<QMenu*>(QApplication::activePopupWidget());
}

behaviour::ShownBox look(const QMessageBox& box) {
    behaviour::ShownBox shown;
    shown.text = (box.detailedText().isEmpty() ? box.text() : box.detailedText()).toStdString();
    shown.icon = iconName(box.icon());
    for (QAbstractButton* button : box.buttons())
        if (box.standardButton(button) != QMessageBox::NoButton)
            shown.buttons.push_back(plain(button->text()).toStdString());
    return shown;
}

std::vector<behaviour::ShownEntry> look(const QMenu& menu) {
    std::vector<behaviour::ShownEntry> entries;
    for (const QAction* action : menu.actions()) {
        const QStringList columns = action->text().split(QLatin1Char('\t'));
        entries.push_back({columns.value(0).toStdString(), columns.value(1).toStdString(),
                           action->isSeparator(), action->isEnabled(), action->isChecked()});
    }
    return entries;
}

QAbstractButton* buttonOf(const QWidget& window, const std::string& text) {
    for (QAbstractButton* button : window.findChildren<QAbstractButton*>())
        if (button->isVisible() && plain(button->text()).toStdString() == text)
            return button;
    return nullptr;
}

QWidget* fieldOf(const QWidget& window, const std::string& field) {
    auto* const named = window.findChild<QWidget*>(QString::fromStdString(field));
    return named ? named : buttonOf(window, field);
}

std::string textOf(const QWidget& window, const std::string& field) {
    const QWidget* const found = window.findChild<QWidget*>(QString::fromStdString(field));
    if (!found)
        ADD_FAILURE() << "no field " << field;
    if (const auto* edit = qobject_cast<const QPlainTextEdit*>(found))
        return edit->toPlainText().toStdString();
    return found ? found->property("text").toString().toStdString() : std::string();
}

} // namespace pixmo::qt
