#pragma once

#include "core/platform/printers.h"

#include <cstdint>
#include <memory>
#include <string>

namespace pixmo {

/// One printer: its device, open or not, and at most one font made for it. Results of the device come back
/// unchanged; with no device open, metrics are 0 and calls fail.
class cPrinter {
public:
    /// Bits of SetFont's style.
    static constexpr int16_t Italic = 1;
    static constexpr int16_t StrikeOut = 2;
    static constexpr int16_t Underline = 4;

    /// The printers outlive this object.
    explicit cPrinter(Printers& printers);
    ~cPrinter();
    cPrinter(const cPrinter&) = delete;
    cPrinter& operator=(const cPrinter&) = delete;

    int32_t LogPixels_X() const { return caps(DeviceCap::LogPixelsX); }
    int32_t LogPixels_Y() const { return caps(DeviceCap::LogPixelsY); }
    int32_t Vert_Res() const { return caps(DeviceCap::VertRes); }
    int32_t Horz_Res() const { return caps(DeviceCap::HorzRes); }
    int32_t Horz_Size() const { return caps(DeviceCap::HorzSize); }
    int32_t Vert_Size() const { return caps(DeviceCap::VertSize); }
    int32_t Physical_Width() const { return caps(DeviceCap::PhysicalWidth); }
    int32_t Physical_Height() const { return caps(DeviceCap::PhysicalHeight); }
    int32_t PhysicalOffset_X() const { return caps(DeviceCap::PhysicalOffsetX); }
    int32_t PhysicalOffset_Y() const { return caps(DeviceCap::PhysicalOffsetY); }
    double TwipsPerPixelX() const { return twipsPerPixel(Horz_Size(), Horz_Res()); }
    double TwipsPerPixelY() const { return twipsPerPixel(Vert_Size(), Vert_Res()); }

    /// Always false.
    static bool PrinterAvailable() { return false; }
    const std::string& DeviceName() const { return deviceName_; }
    /// All metrics, a line each.
    std::string GetCaps() const;
    void GetTextExtentPoint_32(const std::string& text, int32_t& cx, int32_t& cy) const;
    /// Whether the user confirmed a printer, which is then the current one.
    bool ShowPrinter(intptr_t hwndOwner, int32_t flags);
    /// (Re)opens the current printer.
    void LoadDefaultPrinterDC();
    /// Draws on that device instead of a printer.
    void openOn(std::unique_ptr<PrinterDevice> device);
    /// Makes the printer of the kept device name the current one, when there is still one of that name.
    void SelectPrinter();

    /// Opens the current printer unless one is open. An empty name means the program's own.
    int32_t Start_Doc(const std::string& docName);
    int32_t Start_Page();
    int32_t End_Page();
    int32_t End_Doc();
    void Abort_Doc();
    void Delete_DC();
    /// Why the last call failed, "" where the printer does not say.
    std::string problem() const { return device_ ? device_->problem() : std::string(); }

    bool Text_Out(const std::string& text, int32_t x, int32_t y);
    /// Size in points, weight as of LogFont. Throws overflow (6) for sizes beyond 1638.
    void SetFont(int16_t size, const std::string& faceName, int32_t weight, int16_t style);
    void DeleteFont();

    /// nullptr while none is open.
    PrinterDevice* device() const { return device_.get(); }

private:
    int32_t caps(DeviceCap index) const { return device_ ? device_->GetDeviceCaps(index) : 0; }
    static double twipsPerPixel(int32_t millimetres, int32_t pixels);

    Printers& printers_;
    std::string deviceName_;
    std::unique_ptr<PrinterDevice> device_;
    int32_t font_ = 0;
};

} // namespace pixmo
