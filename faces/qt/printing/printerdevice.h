#pragma once

#include "codecs/faxpictures.h"
#include "faces/qt/printing/painterdevice.h"
#include "faces/qt/printing/printtarget.h"

#include <QPdfWriter>
#include <QTemporaryFile>
#include <memory>

namespace pixmo::qt {

/// Draws a job into a PDF file and hands that to its target.
class PrinterDevice : public PainterDevice {
public:
    explicit PrinterDevice(std::unique_ptr<PrintTarget> target);
    ~PrinterDevice() override;
    PrinterDevice(const PrinterDevice&) = delete;
    PrinterDevice& operator=(const PrinterDevice&) = delete;

    int32_t GetDeviceCaps(DeviceCap index) const override;
    bool setPaperSize(int32_t code) override { return target_->setPaperSize(code); }
    bool setCopies(int32_t copies) override { return target_->setCopies(copies); }
    bool drawRaster(const Raster& picture, const Rectangle& source, const Rectangle& destination) override;
    int32_t StartDoc(const std::string& name) override;
    int32_t StartPage() override;
    int32_t EndPage() override { return works() ? 1 : spool::Error; }
    int32_t EndDoc() override;
    void AbortDoc() override;
    std::string problem() const override;

private:
    bool deliver();
    bool works() const { return painter_.isActive() && drawn_.error() == QFileDevice::NoError; }

    std::unique_ptr<PrintTarget> target_;
    QFileDevice* delivered_ = nullptr; ///< the target's, from StartDoc on
    QTemporaryFile drawn_;             ///< the file as it was drawn
    FaxPictures faxPictures_;
    QPdfWriter writer_{&drawn_};
    bool firstPage_ = true;
};

} // namespace pixmo::qt
