#include "faces/qt/windows/filteredit.h"

#include <QKeyEvent>
#include <utility>

namespace pixmo::qt {

FilterEdit::FilterEdit(std::function<int16_t(int16_t)> keyPress, bool selectsAll, QWidget* parent)
    : QLineEdit(parent), keyPress_(std::move(keyPress)), selectsAll_(selectsAll) {}

void FilterEdit::focusInEvent(QFocusEvent* event) {
    QLineEdit::focusInEvent(event);
    if (selectsAll_)
        selectAll();
}

void FilterEdit::keyPressEvent(QKeyEvent* event) {
    const QString text = event->text();
    const bool isCharacter = !text.isEmpty() && text.front().isPrint();
    const ushort character = isCharacter ? text.front().unicode() : ushort{0};
    const auto keyAscii = static_cast<int16_t>(qMin<ushort>(character, 0x7FFF));
    if (keyPress_ && isCharacter && keyPress_(keyAscii) == 0)
        event->accept();
    else
        QLineEdit::keyPressEvent(event);
}

} // namespace pixmo::qt
