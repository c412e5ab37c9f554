#include "faces/qt/pageview.h"

#include "faces/qt/texts.h"

#include <QPainter>
#include <QPointer>
#include <QScrollBar>
#include <utility>

namespace pixmo::qt {

namespace {

/// How much of the former picture the veil hides.
constexpr int VeilAlpha = 191;
constexpr int BandAlpha = 40;
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

// Which bars are needed is found for the whole area first: what does not fit needs a bar, which leaves less
// room for the other direction.
void PageView::showBars() {
    const auto control = control_.lock();
    if (!control || mirroring_)
        return;
    mirroring_ = true;
    const ViewGeometry& geometry = control->lvrImage().geometry();
    const QSize barSize =
        deviceSize({verticalScrollBar()->sizeHint().width(), horizontalScrollBar()->sizeHint().height()});
    const QSize whole = deviceSize(size());
    Size room{whole.width(), whole.height()};
    bool vertical = false;
    bool horizontal = false;
    for (int look = 0; look < 2 && geometry.hasPicture(); ++look) {
        const Size shown = geometry.sizeIn(room);
        vertical = vertical || shown.height > room.height;
        horizontal = horizontal || shown.width > room.width;
        room = {whole.width() - (vertical ? barSize.width() : 0),
                whole.height() - (horizontal ? barSize.height() : 0)};
    }
    setVerticalScrollBarPolicy(vertical ? Qt::ScrollBarAlwaysOn : Qt::ScrollBarAlwaysOff);
    setHorizontalScrollBarPolicy(horizontal ? Qt::ScrollBarAlwaysOn : Qt::ScrollBarAlwaysOff);
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
    const auto control = control_.lock();
    QPainter painter(viewport());
    const QColor background =
        control ? QColor::fromRgb(control->lvrImage().background()) : palette().color(QPalette::Window);
    const QString notice = control ? linesToQt(control->viewNotice()) : QString();
    if (!control || (!notice.isEmpty() && !control->isPageAwaited()))
        painter.fillRect(viewport()->rect(), background);
    else
        paintPicture(painter);
    if (!notice.isEmpty())
        paintNotice(painter, notice);
    if (hasFocus()) {
        painter.setPen(palette().color(QPalette::Highlight));
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(viewport()->rect().adjusted(0, 0, -1, -1));
    }
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
    control->lvrImage().compose(
        {reinterpret_cast<uint32_t*>(image_.bits()), image_.width(), image_.height(), stride});
    image_.setDevicePixelRatio(ratio);
    painter.drawImage(QPoint(0, 0), image_);
    paintRubberBand(painter);
}

void PageView::paintNotice(QPainter& painter, const QString& notice) {
    const auto control = control_.lock();
    QColor veil = QColor::fromRgb(control->lvrImage().background());
    veil.setAlpha(VeilAlpha);
    painter.fillRect(viewport()->rect(), veil);
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

void PageView::paintRubberBand(QPainter& painter) {
    const auto control = control_.lock();
    if (!control->lvrImage().rubberBandActive)
        return;
    const RealRectangle& band = control->lvrImage().rubberBand;
    const double ratio = devicePixelRatioF();
    const QRect shown =
        QRectF(band.left / ratio, band.top / ratio, band.width / ratio, band.height / ratio).toRect();
    QColor fill = palette().color(QPalette::Highlight);
    painter.setPen(fill);
    fill.setAlpha(BandAlpha);
    painter.setBrush(fill);
    painter.drawRect(shown);
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
