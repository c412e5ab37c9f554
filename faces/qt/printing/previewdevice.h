#pragma once

#include "faces/qt/printing/painterdevice.h"

#include <QImage>

namespace pixmo::qt {

/// A sheet of a printer, painted smaller on an image.
class PreviewDevice : public PainterDevice {
public:
    /// A white sheet of the paper's proportion and that height; metrics come from the printer, which must
    /// outlive this object. The image is the caller's.
    PreviewDevice(const pixmo::PrinterDevice& printer, QImage& image);
    /// Of a printer's paper at that height.
    static QImage makeSheet(const pixmo::PrinterDevice& printer, int height);

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
    QImage& image_;
};

} // namespace pixmo::qt
