#include "faces/qt/printing/previewdevice.h"

#include "core/imaging/reducer.h"

#include <QTransform>

namespace pixmo::qt {

std::shared_ptr<QImage> PreviewDevice::makeSheet(Size size) {
    auto sheet = std::make_shared<QImage>(size.width, size.height, QImage::Format_RGB32);
    sheet->fill(Qt::white);
    return sheet;
}

PreviewDevice::PreviewDevice(const pixmo::PrinterDevice& printer, std::shared_ptr<QImage> sheet)
    : printer_(printer), sheet_(std::move(sheet)) {
    painter_.begin(sheet_.get());
    painter_.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    painter_.scale(sheet_->width() / static_cast<double>(GetDeviceCaps(DeviceCap::PhysicalWidth)),
                   sheet_->height() / static_cast<double>(GetDeviceCaps(DeviceCap::PhysicalHeight)));
    painter_.translate(GetDeviceCaps(DeviceCap::PhysicalOffsetX), GetDeviceCaps(DeviceCap::PhysicalOffsetY));
}

bool PreviewDevice::drawRaster(const Raster& picture, const Rectangle& source, const Rectangle& destination) {
    const QRect place =
        painter_.transform()
            .mapRect(QRectF(destination.left, destination.top, destination.width, destination.height))
            .toRect();
    const PixelSurface surface = {reinterpret_cast<uint32_t*>(sheet_->bits()), sheet_->width(),
                                  sheet_->height(),
                                  static_cast<size_t>(sheet_->bytesPerLine()) / sizeof(uint32_t)};
    const RealRectangle part = {static_cast<double>(source.left), static_cast<double>(source.top),
                                static_cast<double>(source.width), static_cast<double>(source.height)};
    drawPicture(picture, part, surface, {place.x(), place.y(), place.width(), place.height()},
                {0, 0, sheet_->width(), sheet_->height()}, BilevelLook::ScaleToGray);
    return true;
}

} // namespace pixmo::qt
