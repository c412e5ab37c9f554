#include "faces/qt/debugpane.h"

#include "faces/qt/texts.h"

#include <QFontDatabase>
#include <QScrollBar>

namespace pixmo::qt {

DebugPane::DebugPane(QWidget* parent) : QPlainTextEdit(parent) {
    setObjectName(QStringLiteral("txtDebug"));
    setReadOnly(true);
    setLineWrapMode(QPlainTextEdit::NoWrap);
    setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    setAccessibleName(tr("Debugging trace"));
    hide();
}

void DebugPane::mirror(const pixmo::ImageView& control) {
    setVisible(control.commands().debugShown);
    if (!control.commands().debugShown)
        return;
    QStringList lines;
    for (const std::string& line : control.txtDebug().lines())
        lines.append(toQt(line));
    const QString text = lines.join(QLatin1Char('\n'));
    if (text == toPlainText())
        return;
    setPlainText(text);
    verticalScrollBar()->setValue(verticalScrollBar()->maximum());
}

} // namespace pixmo::qt
