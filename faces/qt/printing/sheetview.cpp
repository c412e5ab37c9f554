#include "faces/qt/printing/sheetview.h"

#include "faces/qt/ports/texts.h"
#include "faces/qt/printing/previewdevice.h"

#include <utility>

namespace pixmo::qt {

namespace {

constexpr int Margin = 8;

} // namespace

SheetView::SheetView(Resized resized, QWidget* parent) : QLabel(parent), resized_(std::move(resized)) {
    setAlignment(Qt::AlignCenter);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
    setBackgroundRole(QPalette::Mid);
    setAutoFillBackground(true);
}

std::unique_ptr<pixmo::PrinterDevice> SheetView::newSheet(const pixmo::PrinterDevice& printer, Size size) {
    sheet_ = PreviewDevice::makeSheet(size);
    return std::make_unique<PreviewDevice>(printer, sheet_);
}

void SheetView::showSheet() {
    QPixmap picture = QPixmap::fromImage(*sheet_);
    picture.setDevicePixelRatio(devicePixelRatioF());
    setPixmap(picture);
}

void SheetView::say(const std::string& text) {
    setText(toQt(text));
}

void SheetView::resizeEvent(QResizeEvent* event) {
    QLabel::resizeEvent(event);
    const QSize room = (size() - QSize(2 * Margin, 2 * Margin)).expandedTo(QSize(1, 1)) * devicePixelRatioF();
    resized_(this, {room.width(), room.height()});
}

} // namespace pixmo::qt
