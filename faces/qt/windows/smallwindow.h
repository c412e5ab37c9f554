#pragma once

#include <QDialog>
#include <QDialogButtonBox>
#include <QString>

namespace pixmo::qt {

/// What the control's small windows have in common: over the widget, modal to its window alone, and a row of
/// buttons.
class SmallWindow : public QDialog {
public:
    SmallWindow(const QString& title, QWidget* parent);

protected:
    /// Connected to accept and reject.
    QDialogButtonBox* makeButtons(QDialogButtonBox::StandardButtons which);
};

} // namespace pixmo::qt
