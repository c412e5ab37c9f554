#include "faces/qt/windows/pageview.h"

#include "core/base/partnames.h"
#include "core/control/viewpicture.h"
#include "faces/qt/ports/texts.h"
#include "faces/qt/windows/colours.h"

#include <QPainter>
#include <QPointer>
#include <QScrollBar>
#include <utility>

namespace pixmo::qt {

PageView::PageView(QWidget* parent) : ScrolledView(parent) {
    setObjectName(QStringLiteral("lvrImage"));
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setAccessibleName(toQt(part_name::Page));
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

void PageView::scrolled() {
    if (const auto control = control_.lock())
        control->lvrImage().scrollTo(horizontalScrollBar()->value(), verticalScrollBar()->value());
}

void PageView::resizeEvent(QResizeEvent*) {
    showBars();
}

void PageView::paintEvent(QPaintEvent*) {
    const auto control = control_.lock();
    if (!control) {
        QPainter(viewport()).fillRect(viewport()->rect(), palette().color(QPalette::Window));
        return;
    }
    // Moved to a screen of another resolution.
    if (std::exchange(ratio_, devicePixelRatioF()) != devicePixelRatioF())
        control->lvrImage().resize();
    paintBy([&](const PixelSurface& surface, const TextMeasure& measure) {
        return paintView(*control, surface, toPalette(palette()), hasFocus(), measure);
    });
}

} // namespace pixmo::qt
