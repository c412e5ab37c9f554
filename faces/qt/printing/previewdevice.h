#pragma once

#include "faces/qt/printing/painterdevice.h"

#include <QImage>
#include <memory>

namespace pixmo::qt {

/// A sheet of a printer, painted smaller on an image.
class PreviewDevice : public PainterDevice {
public:
    /// Metrics come from the printer, which must outlive this object.
    PreviewDevice(const pixmo::PrinterDevice& printer, std::shared_ptr<QImage> sheet);
    ~PreviewDevice() override { painter_.end(); }
    PreviewDevice(const PreviewDevice&) = delete;
    PreviewDevice& operator=(const PreviewDevice&) = delete;

    /// A white one of that many pixels.
    static std::shared_ptr<QImage> makeSheet(Size size);

    int32_t GetDeviceCaps(DeviceCap index) const override { return printer_.GetDeviceCaps(index); }
    bool setPaperSize(int32_t) override { return false; }
    bool setCopies(int32_t) override { return false; }
    bool drawRaster(const Raster& picture, const Rectangle& source, const Rectangle& destination) override;
    int32_t StartDoc(const std::string&) override { return 1; }
    int32_t StartPage() override { return 1; }
    int32_t EndPage() override { return 1; }
    int32_t EndDoc() override { return 1; }
    void AbortDoc() override {}
    std::string problem() const override { return {}; }

private:
    const pixmo::PrinterDevice& printer_;
    std::shared_ptr<QImage> sheet_;
};

} // namespace pixmo::qt
