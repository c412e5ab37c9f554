#pragma once

#include "tests/behaviour/facedriver.h"

#include <QMessageBox>
#include <QWidget>

class QAbstractButton;
class QMenu;

namespace pixmo::qt {

// The windows of a viewer that are open, as the user finds them. On the thread of the windows.

/// The window in front that has the keyboard, if it is a message box.
QMessageBox* standingBox();
/// The same, if it is a dialog or a window of the viewer.
QWidget* standingDialog();
/// "dlgGotoPage", "" for any other window.
std::string dialogName(const QWidget& window);
/// The menu that is open.
QMenu* standingMenu();

behaviour::ShownBox look(const QMessageBox& box);
std::vector<behaviour::ShownEntry> look(const QMenu& menu);
/// The button of that text without its mnemonic; nullptr when there is none.
QAbstractButton* buttonOf(const QWidget& window, const std::string& text);
/// The text of the field of that name; fails the test when there is none.
/// By its name; a button by its text.
QWidget* fieldOf(const QWidget& window, const std::string& field);
std::string textOf(const QWidget& window, const std::string& field);

} // namespace pixmo::qt
