#pragma once

#include "faces/qt/windows/smallwindow.h"

class QLineEdit;

namespace pixmo {
class dlgGotoPage;
}

namespace pixmo::qt {

/// The window of dlgGotoPage.
class GotoDialog : public SmallWindow {
    Q_OBJECT

public:
    GotoDialog(const dlgGotoPage& dialog, QWidget* parent);

    QString number() const;

private:
    QLineEdit* number_;
};

} // namespace pixmo::qt
