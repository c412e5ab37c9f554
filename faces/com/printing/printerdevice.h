#pragma once

#include "faces/com/printing/devicemode.h"
#include "faces/com/printing/gdidevice.h"

#include <string>

namespace pixmo::com {

/// One printer of the system, opened.
class PrinterDevice : public GdiDevice {
public:
    /// Not open when there is no such printer.
    PrinterDevice(std::wstring printer, DeviceMode mode);
    ~PrinterDevice() override;

    bool isOpen() const { return dc_ != nullptr; }

    int32_t GetDeviceCaps(DeviceCap index) const override;
    bool setPaperSize(int32_t code) override;
    bool setCopies(int32_t copies) override;
    bool TextOut(int32_t x, int32_t y, const std::string& text) override;
    bool drawRaster(const Raster& picture, const Rectangle& source, const Rectangle& destination) override;
    int32_t StartDoc(const std::string& name) override;
    int32_t StartPage() override;
    int32_t EndPage() override;
    int32_t EndDoc() override;
    void AbortDoc() override;
    std::string problem() const override;

private:
    HDC measuringDc() const override { return dc_; }
    void prepare() const;
    bool reset();
    int32_t noted(int32_t result);

    const std::wstring printer_;
    DeviceMode mode_;
    HDC dc_ = nullptr;
    bool inDocument_ = false;
    DWORD problem_ = 0; ///< the system's number of it
};

} // namespace pixmo::com
