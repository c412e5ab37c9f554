#include "faces/qt/windows/cutlabel.h"

namespace pixmo::qt {

CutLabel::CutLabel(QWidget* parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
}

void CutLabel::setWhole(const QString& text) {
    whole_ = text;
    const QString shown = fontMetrics().elidedText(whole_, Qt::ElideMiddle, width());
    setText(shown);
    setToolTip(shown == whole_ ? QString() : whole_);
}

void CutLabel::resizeEvent(QResizeEvent* event) {
    QLabel::resizeEvent(event);
    setWhole(whole_);
}

} // namespace pixmo::qt
