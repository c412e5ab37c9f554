#include "faces/qt/windows/pagenumberedit.h"

#include "core/dialogs/dlggotopage.h"

#include <QKeyEvent>

namespace pixmo::qt {

PageNumberEdit::PageNumberEdit(QWidget* parent) : QLineEdit(parent) {
    setInputMethodHints(Qt::ImhDigitsOnly);
}

void PageNumberEdit::focusInEvent(QFocusEvent* event) {
    QLineEdit::focusInEvent(event);
    selectAll();
}

void PageNumberEdit::keyPressEvent(QKeyEvent* event) {
    const QString text = event->text();
    const bool isCharacter = !text.isEmpty() && text.front().isPrint();
    const ushort character = isCharacter ? text.front().unicode() : ushort{0};
    const auto keyAscii = static_cast<int16_t>(qMin<ushort>(character, 0x7FFF));
    if (isCharacter && dlgGotoPage::txtPageNumber_KeyPress(keyAscii) == 0)
        event->accept();
    else
        QLineEdit::keyPressEvent(event);
}

} // namespace pixmo::qt
