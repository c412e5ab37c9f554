#include "faces/qt/pageview.h"

#include "core/base/ansi.h"
#include "faces/qt/texts.h"
#include "faces/qt/virtualkeys.h"

#include <QPainter>
#include <QScrollBar>
#include <utility>

namespace pixmo::qt {

namespace {

/// How much of the former picture the veil hides.
constexpr int VeilAlpha = 191;
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

bool isLoading(const pixmo::ImageView& control) {
    return control.parts().session.pending.Count() > 0 || control.session().tmrDelay().isRunning();
}

/// Keys that the control acts on; all others reach the host's window too.
bool belongsToControl(int key) {
    return (key >= Qt::Key_Home && key <= Qt::Key_PageDown);
}

void mirror(QScrollBar& bar, const ScrollBar& source) {
    bar.setRange(0, source.maximum);
    bar.setPageStep(source.pageStep);
    bar.setSingleStep(source.lineStep);
    bar.setValue(source.position);
}

} // namespace

PageView::PageView(QWidget* parent) : QAbstractScrollArea(parent) {
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
    const QString notice = linesToQt(control->viewNotice());
    setAccessibleDescription(notice.isEmpty() ? toQt(control->txtPage()) : notice);
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
    if (!control || (!notice.isEmpty() && !isLoading(*control)))
        painter.fillRect(viewport()->rect(), background);
    else
        paintPicture(painter);
    if (!notice.isEmpty())
        paintNotice(painter, notice);
    if (hasFocus()) {
        painter.setPen(palette().color(QPalette::Highlight));
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
}

void PageView::paintNotice(QPainter& painter, const QString& notice) {
    const auto control = control_.lock();
    QColor veil = QColor::fromRgb(control->lvrImage().background());
    veil.setAlpha(VeilAlpha);
    painter.fillRect(viewport()->rect(), veil);
    const QRect room = viewport()->rect().adjusted(NoticeMargin, NoticeMargin, -NoticeMargin, -NoticeMargin);
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawText(room, Qt::AlignCenter | Qt::TextWordWrap, notice);
}

void PageView::focusInEvent(QFocusEvent* event) {
    QAbstractScrollArea::focusInEvent(event);
    viewport()->update();
}

void PageView::focusOutEvent(QFocusEvent* event) {
    QAbstractScrollArea::focusOutEvent(event);
    viewport()->update();
}

// A slot of the host may end this view.
void PageView::keyPressEvent(QKeyEvent* event) {
    const auto control = control_.lock();
    event->setAccepted(belongsToControl(event->key()));
    int16_t keyCode = virtualKey(*event);
    int16_t shift = shiftState(event->modifiers());
    const std::string text = event->text().left(1).toStdString();
    if (!control)
        return;
    if (keyCode != 0)
        control->UserControl_KeyDown(keyCode, shift);
    // A host that takes the key away takes its character too.
    const bool taken = virtualKey(*event) != 0 && keyCode == 0;
    if (text.empty() || taken)
        return;
    auto keyAscii = static_cast<int16_t>(static_cast<unsigned char>(toAnsi(text).front()));
    control->UserControl_KeyPress(keyAscii);
}

void PageView::keyReleaseEvent(QKeyEvent* event) {
    const auto control = control_.lock();
    event->setAccepted(belongsToControl(event->key()));
    int16_t keyCode = virtualKey(*event);
    int16_t shift = shiftState(event->modifiers());
    if (control && keyCode != 0 && !event->isAutoRepeat())
        control->UserControl_KeyUp(keyCode, shift);
}

void PageView::mouseDoubleClickEvent(QMouseEvent*) {
    if (const auto control = control_.lock())
        control->UserControl_DblClick();
}

void PageView::mouseReleaseEvent(QMouseEvent* event) {
    const auto control = control_.lock();
    if (control && event->button() == Qt::LeftButton)
        control->UserControl_Click();
}

} // namespace pixmo::qt
