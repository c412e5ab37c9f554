#pragma once

#include <QLineEdit>
#include <cstdint>
#include <functional>

namespace pixmo::qt {

/// A box to type in that may let only some characters through. What is pasted enters as it is.
class FilterEdit : public QLineEdit {
    Q_OBJECT

public:
    /// keyPress: the character as it enters the box, 0 for not at all; may be missing.
    FilterEdit(std::function<int16_t(int16_t)> keyPress, bool selectsAll, QWidget* parent);

protected:
    void focusInEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    std::function<int16_t(int16_t)> keyPress_;
    bool selectsAll_;
};

} // namespace pixmo::qt
