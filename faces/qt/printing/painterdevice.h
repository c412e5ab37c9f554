#pragma once

#include "core/platform/printerdevice.h"

#include <QFont>
#include <QPainter>
#include <map>

namespace pixmo::qt {

/// How a printer device writes on its sheet, whatever it paints on. Painting begins and ends in the classes
/// that know the paint device; the painter's origin is the printable area's corner.
class PainterDevice : public pixmo::PrinterDevice {
public:
    int32_t CreateFontIndirect(const LogFont& font) override;
    void SelectObject(int32_t font) override;
    void DeleteObject(int32_t font) override { fonts_.erase(font); }
    Size GetTextExtentPoint32(const std::string& text) const override;
    bool TextOut(int32_t x, int32_t y, const std::string& text) override;

protected:
    QPainter painter_;

private:
    std::map<int32_t, QFont> fonts_;
    int32_t lastFont_ = 0;
    QFont selected_;
};

} // namespace pixmo::qt
