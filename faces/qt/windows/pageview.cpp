#include "faces/qt/windows/pageview.h"

#include "core/control/viewpicture.h"
#include "faces/qt/ports/texts.h"
#include "faces/qt/windows/colours.h"

#include <QPainter>
#include <QPointer>
#include <QScrollBar>
#include <utility>

namespace pixmo::qt {

namespace {

constexpr int NoticeMargin = 12;

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

void mirror(QScrollBar& bar, const ScrollBar& source) {
    bar.setRange(0, source.maximum);
    bar.setPageStep(source.pageStep);
    bar.setSingleStep(source.lineStep);
    bar.setValue(source.position);
}

} // namespace

PageView::PageView(QWidget* parent) : QAbstractScrollArea(parent) {
    setObjectName(QStringLiteral("lvrImage"));
    setFocusPolicy(Qt::StrongFocus);
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
    setAccessibleName(tr("Page"));
}

void PageView::setControl(const std::shared_ptr<pixmo::ImageView>& control) {
    control_ = control;
    if (!control)
        return;
    control->lvrImage().Changed.connect([view = QPointer<PageView>(this)] {
        if (view)
            view->showBars();
    });
    showBars();
}

QSize PageView::deviceSize(QSize size) const {
    const double ratio = devicePixelRatioF();
    return {qRound(size.width() * ratio), qRound(size.height() * ratio)};
}

void PageView::setPointer(int32_t code) {
    viewport()->setCursor(shapeOf(code));
}

void PageView::refreshNotice() {
    const auto control = control_.lock();
    if (!control)
        return;
    setAccessibleDescription(linesToQt(control->viewDescription()));
    viewport()->update();
}

void PageView::showBars() {
    const auto control = control_.lock();
    if (!control || mirroring_)
        return;
    mirroring_ = true;
    const QSize barSize =
        deviceSize({verticalScrollBar()->sizeHint().width(), horizontalScrollBar()->sizeHint().height()});
    const QSize whole = deviceSize(size());
    const ViewGeometry::Bars bars = control->lvrImage().geometry().barsIn(
        {whole.width(), whole.height()}, {barSize.width(), barSize.height()});
    setVerticalScrollBarPolicy(bars.vertical ? Qt::ScrollBarAlwaysOn : Qt::ScrollBarAlwaysOff);
    setHorizontalScrollBarPolicy(bars.horizontal ? Qt::ScrollBarAlwaysOn : Qt::ScrollBarAlwaysOff);
    control->lvrImage().resize();
    mirrorBars();
    mirroring_ = false;
    setAccessibleDescription(linesToQt(control->viewDescription()));
}

void PageView::mirrorBars() {
    if (const auto control = control_.lock()) {
        mirror(*horizontalScrollBar(), control->lvrImage().horizontalBar());
        mirror(*verticalScrollBar(), control->lvrImage().verticalBar());
    }
}

void PageView::scrollContentsBy(int, int) {
    const auto control = control_.lock();
    if (control && !mirroring_)
        control->lvrImage().scrollTo(horizontalScrollBar()->value(), verticalScrollBar()->value());
}

void PageView::resizeEvent(QResizeEvent*) {
    showBars();
}

void PageView::changeEvent(QEvent* event) {
    QAbstractScrollArea::changeEvent(event);
    viewport()->update();
}

void PageView::paintEvent(QPaintEvent*) {
    QPainter painter(viewport());
    const auto control = control_.lock();
    if (!control) {
        painter.fillRect(viewport()->rect(), palette().color(QPalette::Window));
        return;
    }
    paintPicture(painter);
    const QString notice = linesToQt(control->viewNotice());
    if (!notice.isEmpty())
        paintNotice(painter, notice);
}

void PageView::paintPicture(QPainter& painter) {
    const auto control = control_.lock();
    const double ratio = devicePixelRatioF();
    // Moved to a screen of another resolution.
    if (std::exchange(ratio_, ratio) != ratio)
        control->lvrImage().resize();
    const QSize size = deviceSize();
    if (image_.size() != size)
        image_ = QImage(size, QImage::Format_RGB32);
    if (image_.isNull())
        return;
    const auto stride = static_cast<size_t>(image_.bytesPerLine()) / sizeof(uint32_t);
    paintView(*control, {reinterpret_cast<uint32_t*>(image_.bits()), image_.width(), image_.height(), stride},
              toPalette(palette()), hasFocus());
    image_.setDevicePixelRatio(ratio);
    painter.drawImage(QPoint(0, 0), image_);
}

void PageView::paintNotice(QPainter& painter, const QString& notice) {
    const QMargins margins(NoticeMargin, NoticeMargin, NoticeMargin, NoticeMargin);
    const QRect room = viewport()->rect().marginsRemoved(margins * 2);
    const int flags = Qt::AlignCenter | Qt::TextWordWrap;
    const QRect plate = painter.boundingRect(room, flags, notice).marginsAdded(margins);
    painter.setPen(palette().color(QPalette::Dark));
    painter.setBrush(palette().color(QPalette::Window));
    painter.drawRect(plate);
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawText(room, flags, notice);
}

void PageView::focusInEvent(QFocusEvent* event) {
    QAbstractScrollArea::focusInEvent(event);
    viewport()->update();
}

void PageView::focusOutEvent(QFocusEvent* event) {
    QAbstractScrollArea::focusOutEvent(event);
    viewport()->update();
}

} // namespace pixmo::qt
