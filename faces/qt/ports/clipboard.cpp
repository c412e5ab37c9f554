#include "faces/qt/ports/clipboard.h"

#include "core/raster/raster.h"
#include "faces/qt/ports/texts.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QImage>

namespace pixmo::qt {

namespace {

QImage::Format formatOf(const Raster& picture) {
    switch (picture.format) {
    case PixelFormat::Bilevel:
        return QImage::Format_Mono;
    case PixelFormat::Gray:
        return QImage::Format_Grayscale8;
    case PixelFormat::Rgb:
        break;
    }
    return QImage::Format_RGB888;
}

} // namespace

void Clipboard::setPicture(const Raster& picture) {
    QImage image(picture.pixels.data(), picture.width, picture.height, static_cast<qsizetype>(picture.stride),
                 formatOf(picture));
    if (picture.format == PixelFormat::Bilevel)
        image.setColorTable(
            {QRgb{0xFF000000} | picture.bilevelColours[0], QRgb{0xFF000000} | picture.bilevelColours[1]});
    image.setDotsPerMeterX(picture.pixelsAMetre().first);
    image.setDotsPerMeterY(picture.pixelsAMetre().second);
    // The clipboard outlives the picture.
    QGuiApplication::clipboard()->setImage(image.copy());
}

void Clipboard::setText(const std::string& text) {
    QGuiApplication::clipboard()->setText(linesToQt(text));
}

} // namespace pixmo::qt
