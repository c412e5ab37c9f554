#include "faces/qt/windows/smallwindow.h"

namespace pixmo::qt {

SmallWindow::SmallWindow(const QString& title, QWidget* parent) : QDialog(parent) {
    setWindowTitle(title);
    setWindowModality(Qt::WindowModal);
}

QDialogButtonBox* SmallWindow::makeButtons(QDialogButtonBox::StandardButtons which) {
    auto* const buttons = new QDialogButtonBox(which, this);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    return buttons;
}

} // namespace pixmo::qt
