#include "faces/qt/printing/previewdevice.h"

#include "core/imaging/reducer.h"

#include <QTransform>

namespace pixmo::qt {

QImage PreviewDevice::makeSheet(const pixmo::PrinterDevice& printer, int height) {
    const double width = printer.GetDeviceCaps(DeviceCap::PhysicalWidth);
    const double paper = qMax(1, printer.GetDeviceCaps(DeviceCap::PhysicalHeight));
    QImage sheet(qMax(1, qRound(width * height / paper)), height, QImage::Format_RGB32);
    sheet.fill(Qt::white);
    return sheet;
}

PreviewDevice::PreviewDevice(const pixmo::PrinterDevice& printer, QImage& image)
    : printer_(printer), image_(image) {
    painter_.begin(&image_);
    painter_.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    painter_.scale(image_.width() / static_cast<double>(GetDeviceCaps(DeviceCap::PhysicalWidth)),
                   image_.height() / static_cast<double>(GetDeviceCaps(DeviceCap::PhysicalHeight)));
    painter_.translate(GetDeviceCaps(DeviceCap::PhysicalOffsetX), GetDeviceCaps(DeviceCap::PhysicalOffsetY));
}

bool PreviewDevice::drawRaster(const Raster& picture, const Rectangle& source, const Rectangle& destination) {
    const QRect place =
        painter_.transform()
            .mapRect(QRectF(destination.left, destination.top, destination.width, destination.height))
            .toRect();
    const PixelSurface surface = {reinterpret_cast<uint32_t*>(image_.bits()), image_.width(), image_.height(),
                                  static_cast<size_t>(image_.bytesPerLine()) / sizeof(uint32_t)};
    const RealRectangle part = {static_cast<double>(source.left), static_cast<double>(source.top),
                                static_cast<double>(source.width), static_cast<double>(source.height)};
    drawPicture(picture, part, surface, {place.x(), place.y(), place.width(), place.height()},
                {0, 0, image_.width(), image_.height()}, BilevelLook::ScaleToGray);
    return true;
}

} // namespace pixmo::qt
