#include "faces/qt/printing/printerdevice.h"

#include "codecs/pdfcompactor.h"
#include "faces/qt/ports/texts.h"

#include <QImage>
#include <algorithm>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <utility>

namespace pixmo::qt {

namespace {

constexpr int DotsPerInch = 1200;
constexpr uint32_t White = 0xFFFFFF;

int32_t millimetres(int pixels) {
    return static_cast<int32_t>(std::lround(pixels * 25.4 / DotsPerInch));
}

bool isBlackOnWhite(const Raster& picture) {
    return picture.format == PixelFormat::Bilevel && picture.bilevelColours[0] == White &&
           picture.bilevelColours[1] == 0;
}

/// Bit 0 is black in what a print engine takes as it stands; everything else becomes 24 bits there.
QImage blackAndWhite(const Raster& picture) {
    QImage image(picture.width, picture.height, QImage::Format_Mono);
    image.setColorTable({qRgb(0, 0, 0), qRgb(255, 255, 255)});
    const size_t size = packedRowSize(PixelFormat::Bilevel, picture.width);
    for (int y = 0; y < picture.height; ++y)
        std::transform(picture.row(y).begin(), picture.row(y).begin() + static_cast<std::ptrdiff_t>(size),
                       image.scanLine(y), [](uint8_t bits) { return static_cast<uchar>(~bits); });
    return image;
}

/// Refers to the pixels of the picture.
QImage wrapped(const Raster& picture) {
    const auto format = picture.format == PixelFormat::Bilevel ? QImage::Format_Mono
                        : picture.format == PixelFormat::Gray  ? QImage::Format_Grayscale8
                                                               : QImage::Format_RGB888;
    QImage image(picture.pixels.data(), picture.width, picture.height, static_cast<qsizetype>(picture.stride),
                 format);
    if (picture.format == PixelFormat::Bilevel)
        image.setColorTable(
            {0xFF000000U | picture.bilevelColours[0], 0xFF000000U | picture.bilevelColours[1]});
    return image;
}

} // namespace

PrinterDevice::PrinterDevice(std::unique_ptr<PrintTarget> target) : target_(std::move(target)) {
    writer_.setResolution(DotsPerInch);
}

PrinterDevice::~PrinterDevice() {
    if (delivered_)
        AbortDoc();
}

int32_t PrinterDevice::GetDeviceCaps(DeviceCap index) const {
    const QPageLayout layout = target_->layout();
    const QRect paper = layout.fullRectPixels(DotsPerInch);
    const QRect printable = layout.paintRectPixels(DotsPerInch);
    switch (index) {
    case DeviceCap::HorzSize:
        return millimetres(printable.width());
    case DeviceCap::VertSize:
        return millimetres(printable.height());
    case DeviceCap::HorzRes:
        return printable.width();
    case DeviceCap::VertRes:
        return printable.height();
    case DeviceCap::LogPixelsX:
    case DeviceCap::LogPixelsY:
        return DotsPerInch;
    case DeviceCap::PhysicalWidth:
        return paper.width();
    case DeviceCap::PhysicalHeight:
        return paper.height();
    case DeviceCap::PhysicalOffsetX:
        return printable.left();
    case DeviceCap::PhysicalOffsetY:
        return printable.top();
    }
    return 0;
}

int32_t PrinterDevice::StartDoc(const std::string& name) {
    delivered_ = target_->begin(toQt(name));
    if (!delivered_)
        return target_->problem().empty() ? spool::UserAbort : spool::Error;
    writer_.setTitle(toQt(name));
    writer_.setPageLayout(target_->layout());
    firstPage_ = true;
    return drawn_.open() && painter_.begin(&writer_) ? 1 : spool::Error;
}

int32_t PrinterDevice::StartPage() {
    if (!works() || (!firstPage_ && !writer_.newPage()))
        return spool::Error;
    firstPage_ = false;
    return 1;
}

/// The file as it was drawn, but smaller, goes to its target.
bool PrinterDevice::deliver() {
    std::ifstream drawn(std::filesystem::path(drawn_.fileName().toStdU16String()), std::ios::binary);
    const auto write = [this](std::string_view bytes) {
        const auto size = static_cast<qint64>(bytes.size());
        return delivered_->write(bytes.data(), size) == size;
    };
    return drawn && PdfCompactor::copy(drawn, write, faxPictures_) && delivered_->flush() &&
           delivered_->error() == QFileDevice::NoError && target_->deliver();
}

int32_t PrinterDevice::EndDoc() {
    if (!works() || !painter_.end() || !drawn_.flush() || !deliver())
        return spool::Error;
    delivered_ = nullptr;
    return 1;
}

void PrinterDevice::AbortDoc() {
    if (painter_.isActive())
        painter_.end();
    if (delivered_)
        target_->discard();
    delivered_ = nullptr;
}

std::string PrinterDevice::problem() const {
    const std::string text = target_->problem();
    return text.empty() && drawn_.error() != QFileDevice::NoError ? drawn_.errorString().toStdString() : text;
}

bool PrinterDevice::drawRaster(const Raster& picture, const Rectangle& source, const Rectangle& destination) {
    if (!works())
        return false;
    const Raster part = partOf(picture, source);
    if (part.empty())
        return false;
    const bool isFax = isBlackOnWhite(part);
    if (isFax)
        faxPictures_.add(part);
    painter_.setRenderHint(QPainter::LosslessImageRendering, part.format == PixelFormat::Bilevel);
    painter_.drawImage(QRect(destination.left, destination.top, destination.width, destination.height),
                       isFax ? blackAndWhite(part) : wrapped(part));
    return true;
}

} // namespace pixmo::qt
