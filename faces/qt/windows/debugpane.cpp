#include "faces/qt/windows/debugpane.h"

#include "core/base/partnames.h"
#include "faces/qt/ports/texts.h"

#include <QCoreApplication>
#include <QFontDatabase>
#include <QKeyEvent>
#include <QScrollBar>

namespace pixmo::qt {

DebugPane::DebugPane(QWidget* parent, QWidget* page) : QPlainTextEdit(parent), page_(page) {
    setObjectName(QStringLiteral("txtDebug"));
    setReadOnly(true);
    setLineWrapMode(QPlainTextEdit::NoWrap);
    setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    setAccessibleName(toQt(part_name::Trace));
    hide();
}

void DebugPane::mirror(const pixmo::ImageView& control) {
    // Who worked in the pane goes on in the page.
    if (!control.commands().debugShown && hasFocus())
        page_->setFocus();
    setVisible(control.commands().debugShown);
    if (!control.commands().debugShown)
        return;
    const QString text = linesToQt(control.txtDebug().text());
    if (text == toPlainText())
        return;
    setPlainText(text);
    verticalScrollBar()->setValue(verticalScrollBar()->maximum());
}

void DebugPane::keyPressEvent(QKeyEvent* event) {
    if (event->matches(QKeySequence::SelectAll) ||
        (event->matches(QKeySequence::Copy) && textCursor().hasSelection()))
        QPlainTextEdit::keyPressEvent(event);
    else
        handToPage(event);
}

void DebugPane::keyReleaseEvent(QKeyEvent* event) {
    handToPage(event);
}

// From there an unused key goes on to the host's window, and from here no more.
void DebugPane::handToPage(QKeyEvent* event) {
    QCoreApplication::sendEvent(page_, event);
    event->accept();
}

} // namespace pixmo::qt
