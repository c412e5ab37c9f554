#pragma once

#include "faces/com/base/pixelbuffer.h"
#include "faces/com/printing/gdidevice.h"

#include <memory>

namespace pixmo::com {

/// A sheet of a printer, painted smaller in memory.
class PreviewDevice : public GdiDevice {
public:
    /// On a white sheet that fills the pixels; metrics come from the printer, which outlives this object.
    PreviewDevice(const pixmo::PrinterDevice& printer, std::shared_ptr<PixelBuffer> pixels);
    ~PreviewDevice() override;

    int32_t GetDeviceCaps(DeviceCap index) const override { return printer_.GetDeviceCaps(index); }
    bool setPaperSize(int32_t) override { return false; }
    bool setCopies(int32_t) override { return false; }
    bool TextOut(int32_t x, int32_t y, const std::string& text) override;
    bool drawRaster(const Raster& picture, const Rectangle& source, const Rectangle& destination) override;
    int32_t StartDoc(const std::string&) override { return 1; }
    int32_t StartPage() override { return 1; }
    int32_t EndPage() override { return 1; }
    int32_t EndDoc() override { return 1; }
    void AbortDoc() override {}
    std::string problem() const override { return {}; }

private:
    HDC measuringDc() const override { return measuring_; }
    int32_t across(double x) const;
    int32_t down(double y) const;

    const pixmo::PrinterDevice& printer_;
    std::shared_ptr<PixelBuffer> pixels_;
    HDC measuring_; ///< its pixels are the printer's
    Size size_;
};

} // namespace pixmo::com
