#pragma once

#include "core/platform/printerdevice.h"
#include "faces/com/base/gdi.h"

#include <map>

namespace pixmo::com {

/// How a printer device writes on its sheet by the system's graphics interface. The derived class says on
/// which context it measures; its units are the device's pixels from the corner of the printable area.
class GdiDevice : public pixmo::PrinterDevice {
public:
    GdiDevice() = default;
    GdiDevice(const GdiDevice&) = delete;
    GdiDevice& operator=(const GdiDevice&) = delete;

    int32_t CreateFontIndirect(const LogFont& font) override;
    void SelectObject(int32_t font) override;
    void DeleteObject(int32_t font) override;
    Size GetTextExtentPoint32(const std::string& text) const override;

protected:
    virtual HDC measuringDc() const = 0;
    /// nullptr before any font is selected.
    HFONT selected() const;

private:
    std::map<int32_t, FontHandle> fonts_;
    int32_t lastFont_ = 0;
    int32_t selected_ = 0;
};

} // namespace pixmo::com
