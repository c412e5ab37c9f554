#include "faces/qt/windows/statusrow.h"

#include "core/base/partnames.h"
#include "faces/qt/ports/texts.h"

namespace pixmo::qt {

namespace {

constexpr int TextMargin = 6;
constexpr int RowMargin = 3;
constexpr int ProgressWidth = 120;
constexpr int ProgressHeight = 8;

QRect rect(const Box& box, QPoint origin) {
    return QRect(box.left, box.top, box.width, box.height).translated(origin);
}

QLabel* plainLabel(QWidget& parent, const QString& objectName) {
    auto* const label = new QLabel(&parent);
    label->setObjectName(objectName);
    label->setTextFormat(Qt::PlainText);
    label->setMargin(0);
    return label;
}

} // namespace

StatusRow::StatusRow(QWidget& parent)
    : readOut_(plainLabel(parent, QStringLiteral("txtPage"))),
      status_(plainLabel(parent, QStringLiteral("lblStatus"))), progress_(new QProgressBar(&parent)),
      zoom_(plainLabel(parent, QStringLiteral("lblZoom"))) {
    readOut_->setIndent(TextMargin);
    progress_->setTextVisible(false);
    progress_->setRange(0, 100);
    progress_->setAccessibleName(toQt(part_name::Progress));
    progress_->hide();
    zoom_->setIndent(TextMargin);
    zoom_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
}

void StatusRow::mirror(const pixmo::ImageView& control) {
    readOut_->setText(toQt(control.txtPage()));
    mirrorZoom(control);
    statusText_ = linesToQt(control.statusText()).replace(QLatin1Char('\n'), QLatin1Char(' '));
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
    const auto widthOf = [&metrics](const QLabel& label) {
        return label.text().isEmpty() ? 0 : metrics.horizontalAdvance(label.text()) + 2 * TextMargin;
    };
    measures.readOutWidth = widthOf(*readOut_);
    measures.zoomWidth = widthOf(*zoom_);
    measures.statusHeight = metrics.height() + 2 * RowMargin;
    measures.progressWidth = progressShown_ ? ProgressWidth : 0;
}

void StatusRow::place(const ControlLayout& layout, QPoint origin) {
    readOut_->setGeometry(rect(layout.readOut, origin));
    status_->setGeometry(rect(layout.status, origin));
    zoom_->setGeometry(rect(layout.zoom, origin));
    const QRect room = rect(layout.progress, origin);
    const int height = qMin(ProgressHeight, room.height());
    progress_->setGeometry(room.left(), room.top() + (room.height() - height) / 2,
                           qMax(0, room.width() - TextMargin), height);
    progress_->setVisible(progressShown_ && room.width() > TextMargin);
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
