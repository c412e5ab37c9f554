#pragma once

#include "faces/qt/painterdevice.h"

#include <QPrinter>
#include <functional>
#include <memory>
#include <optional>

namespace pixmo::qt {

/// A printer of the print system, or a PDF file.
class PrinterDevice : public PainterDevice {
public:
    /// Where the file goes; none: the user does not want it after all.
    using AskPath = std::function<std::optional<QString>(const QString& documentName)>;

    /// An empty name means a PDF file, for which `askPath` is asked when the document starts.
    PrinterDevice(const QString& printerName, AskPath askPath);
    ~PrinterDevice() override;
    PrinterDevice(const PrinterDevice&) = delete;
    PrinterDevice& operator=(const PrinterDevice&) = delete;

    bool isValid() const { return isFile_ || printer_.isValid(); }

    bool setPaperSize(int32_t code) override;
    bool setCopies(int32_t copies) override;
    bool drawRaster(const Raster& picture, const Rectangle& source, const Rectangle& destination) override;
    int32_t StartDoc(const std::string& name) override;
    int32_t StartPage() override;
    int32_t EndPage() override;
    int32_t EndDoc() override;
    void AbortDoc() override;

protected:
    int resolution() const override { return printer_.resolution(); }
    QPageLayout pageLayout() const override { return printer_.pageLayout(); }
    QPaintDevice* metricsDevice() const override { return &printer_; }

private:
    void useAllPaper();
    bool works() const { return painter_.isActive() && printer_.printerState() != QPrinter::Error; }
    QString unfinished() const { return path_ + QLatin1String(".part"); }

    const bool isFile_;
    AskPath askPath_;
    mutable QPrinter printer_;
    QString path_;
    bool firstPage_ = true;
};

} // namespace pixmo::qt
