#pragma once

#include <QLineEdit>

namespace pixmo::qt {

/// The text box txtPageNumber: takes the characters that dlgGotoPage lets through and selects all of its text
/// when it gets the focus. What is pasted enters as it is.
class PageNumberEdit : public QLineEdit {
    Q_OBJECT

public:
    explicit PageNumberEdit(QWidget* parent);

protected:
    void focusInEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
};

} // namespace pixmo::qt
