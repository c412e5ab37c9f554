#include "faces/qt/windows/scrolledview.h"

#include "core/platform/viewsurface.h"
#include "faces/qt/ports/texts.h"

#include <QPainter>
#include <QScrollBar>

namespace pixmo::qt {

namespace {

Qt::CursorShape shapeOf(int32_t code) {
    switch (static_cast<Pointer>(code)) {
    case Pointer::Cross:
        return Qt::CrossCursor;
    case Pointer::ArrowHourglass:
        return Qt::BusyCursor;
    case Pointer::SizeAll:
        return Qt::SizeAllCursor;
    default:
        return Qt::ArrowCursor;
    }
}

} // namespace

ScrolledView::ScrolledView(QWidget* parent) : QAbstractScrollArea(parent) {
    setFocusPolicy(Qt::StrongFocus);
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
}

void ScrolledView::setPointer(int32_t code) {
    viewport()->setCursor(shapeOf(code));
}

QSize ScrolledView::deviceSize(QSize size) const {
    const double ratio = devicePixelRatioF();
    return {qRound(size.width() * ratio), qRound(size.height() * ratio)};
}

void ScrolledView::mirror(QScrollBar& bar, const ScrollBar& source) {
    bar.setRange(0, source.maximum);
    bar.setPageStep(source.pageStep);
    bar.setSingleStep(source.lineStep);
    bar.setValue(source.position);
}

void ScrolledView::scrollContentsBy(int, int) {
    if (!mirroring_)
        scrolled();
}

void ScrolledView::changeEvent(QEvent* event) {
    QAbstractScrollArea::changeEvent(event);
    viewport()->update();
}

void ScrolledView::focusInEvent(QFocusEvent* event) {
    QAbstractScrollArea::focusInEvent(event);
    viewport()->update();
}

void ScrolledView::focusOutEvent(QFocusEvent* event) {
    QAbstractScrollArea::focusOutEvent(event);
    viewport()->update();
}

QFont ScrolledView::fontOf(bool bold) const {
    QFont own = font();
    own.setBold(bold || own.bold());
    return own;
}

TextMeasure ScrolledView::measure() const {
    return [this](const std::string& text, bool bold, int32_t room) {
        const QFontMetrics metrics(fontOf(bold));
        const double ratio = devicePixelRatioF();
        if (room <= 0)
            return Size{qRound(metrics.horizontalAdvance(toQt(text)) * ratio),
                        qRound(metrics.height() * ratio)};
        const QRect within(0, 0, static_cast<int>(room / ratio), QWIDGETSIZE_MAX);
        const QSize size = metrics.boundingRect(within, Qt::TextWordWrap, linesToQt(text)).size();
        return Size{qRound(size.width() * ratio), qRound(size.height() * ratio)};
    };
}

void ScrolledView::write(QPainter& painter, const TextRun& run) const {
    const double ratio = devicePixelRatioF();
    painter.setFont(fontOf(run.bold));
    painter.setPen(QColor::fromRgb(run.rgb));
    painter.drawText(QRectF(run.place.left / ratio, run.place.top / ratio, run.place.width / ratio,
                            run.place.height / ratio),
                     Qt::AlignCenter | (run.wraps ? Qt::TextWordWrap : Qt::TextSingleLine),
                     linesToQt(run.text));
}

void ScrolledView::paintBy(const Paint& paint) {
    const QSize size = deviceSize();
    if (image_.size() != size)
        image_ = QImage(size, QImage::Format_RGB32);
    if (image_.isNull())
        return;
    const auto stride = static_cast<size_t>(image_.bytesPerLine()) / sizeof(uint32_t);
    const std::vector<TextRun> texts = paint(
        {reinterpret_cast<uint32_t*>(image_.bits()), image_.width(), image_.height(), stride}, measure());
    image_.setDevicePixelRatio(devicePixelRatioF());
    QPainter painter(viewport());
    painter.drawImage(QPoint(0, 0), image_);
    for (const TextRun& run : texts)
        write(painter, run);
}

} // namespace pixmo::qt
