#include "faces/qt/windows/statusrow.h"

#include "core/base/partnames.h"
#include "faces/qt/ports/texts.h"

namespace pixmo::qt {

namespace {

QRect rect(const Rectangle& box, QPoint origin) {
    return QRect(box.left, box.top, box.width, box.height).translated(origin);
}

QLabel* plainLabel(QWidget& parent, const QString& objectName) {
    auto* const label = new QLabel(&parent);
    label->setObjectName(objectName);
    label->setTextFormat(Qt::PlainText);
    label->setMargin(0);
    label->setIndent(0);
    return label;
}

} // namespace

StatusRow::StatusRow(QWidget& parent)
    : readOut_(plainLabel(parent, QStringLiteral("txtPage"))),
      status_(plainLabel(parent, QStringLiteral("lblStatus"))), progress_(new QProgressBar(&parent)),
      zoom_(plainLabel(parent, QStringLiteral("lblZoom"))) {
    progress_->setTextVisible(false);
    progress_->setRange(0, 100);
    progress_->setAccessibleName(toQt(part_name::Progress));
    progress_->hide();
    zoom_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
}

void StatusRow::mirror(const pixmo::ImageView& control) {
    readOut_->setText(toQt(control.txtPage()));
    mirrorZoom(control);
    statusText_ = toQt(control.statusText());
    const int percent = control.progressPercent();
    progressShown_ = percent >= 0;
    progress_->setValue(qMax(percent, 0));
    showStatus();
}

bool StatusRow::mirrorZoom(const pixmo::ImageView& control) {
    const QString zoom = toQt(control.zoomText());
    if (zoom_->text() == zoom)
        return false;
    zoom_->setText(zoom);
    zoom_->setAccessibleName(toQt(part_name::Zoom) + QLatin1Char(' ') + zoom);
    return true;
}

void StatusRow::measure(LayoutMeasures& measures) const {
    const QFontMetrics metrics = readOut_->fontMetrics();
    measures.textHeight = metrics.height();
    measures.readOutWidth = metrics.horizontalAdvance(readOut_->text());
    measures.zoomWidth = metrics.horizontalAdvance(zoom_->text());
    measures.progressShown = progressShown_;
}

void StatusRow::place(const ControlLayout& layout, QPoint origin) {
    readOut_->setGeometry(rect(layout.readOut, origin));
    status_->setGeometry(rect(layout.status, origin));
    zoom_->setGeometry(rect(layout.zoom, origin));
    progress_->setGeometry(rect(layout.progress, origin));
    progress_->setVisible(!layout.progress.empty());
    showStatus();
}

void StatusRow::showStatus() {
    const QString shown = status_->fontMetrics().elidedText(statusText_, Qt::ElideRight, status_->width());
    status_->setText(shown);
    status_->setToolTip(shown == statusText_ ? QString() : statusText_);
    // All of a text that is cut on the screen.
    status_->setAccessibleName(statusText_.isEmpty() ? toQt(part_name::Status) : statusText_);
}

} // namespace pixmo::qt
