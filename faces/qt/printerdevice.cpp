#include "faces/qt/printerdevice.h"

#include "faces/qt/pdfcompactor.h"
#include "faces/qt/texts.h"

#include <QFile>
#include <QImage>
#include <QPageSize>
#include <QPrinterInfo>
#include <algorithm>
#include <cstdio>
#include <utility>

namespace pixmo::qt {

namespace {

/// A file is printed on real paper sooner or later: what no printer reaches stays empty.
constexpr double FileMarginMillimetres = 6.35;
constexpr uint32_t White = 0xFFFFFF;

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

QRect rect(const Rectangle& box) {
    return {box.left, box.top, box.width, box.height};
}

} // namespace

PrinterDevice::PrinterDevice(const QString& printerName, AskPath askPath)
    : isFile_(printerName.isEmpty()), askPath_(std::move(askPath)), printer_(QPrinter::HighResolution) {
    if (isFile_)
        printer_.setOutputFormat(QPrinter::PdfFormat);
    else
        printer_.setPrinterName(printerName);
    printer_.setFullPage(false);
    useAllPaper();
}

PrinterDevice::~PrinterDevice() {
    if (painter_.isActive())
        AbortDoc();
}

void PrinterDevice::useAllPaper() {
    QPageLayout layout = printer_.pageLayout();
    layout.setUnits(QPageLayout::Millimeter);
    const double margin = FileMarginMillimetres;
    layout.setMargins(isFile_ ? QMarginsF(margin, margin, margin, margin) : layout.minimumMargins());
    printer_.setPageLayout(layout);
}

bool PrinterDevice::setPaperSize(int32_t code) {
    const QPageSize::PageSizeId id = QPageSize::id(code);
    if (id == QPageSize::Custom)
        return false;
    const auto sizes = isFile_ ? QList<QPageSize>() : QPrinterInfo(printer_).supportedPageSizes();
    const bool has = isFile_ || std::any_of(sizes.begin(), sizes.end(),
                                            [id](const QPageSize& size) { return size.id() == id; });
    if (!has || !printer_.setPageSize(QPageSize(id)))
        return false;
    useAllPaper();
    return true;
}

bool PrinterDevice::setCopies(int32_t copies) {
    if (isFile_ || !printer_.supportsMultipleCopies())
        return false;
    printer_.setCopyCount(copies);
    printer_.setCollateCopies(true);
    return true;
}

int32_t PrinterDevice::StartDoc(const std::string& name) {
    printer_.setDocName(toQt(name));
    if (isFile_) {
        const auto path = askPath_(toQt(name));
        if (!path)
            return spool::UserAbort;
        path_ = *path;
        printer_.setOutputFileName(unfinished());
    }
    firstPage_ = true;
    return painter_.begin(&printer_) ? 1 : spool::Error;
}

int32_t PrinterDevice::StartPage() {
    if (!works() || (!firstPage_ && !printer_.newPage()))
        return spool::Error;
    firstPage_ = false;
    return 1;
}

int32_t PrinterDevice::EndPage() {
    return works() ? 1 : spool::Error;
}

// A file takes its name when it is whole.
int32_t PrinterDevice::EndDoc() {
    const bool done = works() && painter_.end() && printer_.printerState() != QPrinter::Error;
    if (!isFile_)
        return done ? 1 : spool::Error;
    const QString whole = unfinished();
    const QString small = path_ + QLatin1String(".small");
    const bool compacted = done && PdfCompactor::copy(whole, small);
    const QByteArray from = QFile::encodeName(compacted ? small : whole);
    const QByteArray to = QFile::encodeName(path_);
    const bool named = done && std::rename(from.constData(), to.constData()) == 0;
    QFile::remove(whole);
    return named ? 1 : spool::Error;
}

void PrinterDevice::AbortDoc() {
    printer_.abort();
    painter_.end();
    if (isFile_ && !path_.isEmpty())
        QFile::remove(unfinished());
}

bool PrinterDevice::drawRaster(const Raster& picture, const Rectangle& source, const Rectangle& destination) {
    if (!works())
        return false;
    QImage image = isBlackOnWhite(picture) ? blackAndWhite(picture) : wrapped(picture);
    if (rect(source) != image.rect())
        image = image.copy(rect(source));
    if (image.isNull())
        return false;
    painter_.setRenderHint(QPainter::LosslessImageRendering, picture.format == PixelFormat::Bilevel);
    painter_.drawImage(rect(destination), image);
    return true;
}

} // namespace pixmo::qt
