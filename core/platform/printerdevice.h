#pragma once

#include "core/raster/raster.h"
#include "core/raster/rectangle.h"

#include <cstdint>
#include <string>

namespace pixmo {

/// What a device can be asked about itself; the values are the system's own indices.
enum class DeviceCap : int32_t {
    HorzSize = 4,          ///< printable width in millimetres
    VertSize = 6,          ///< printable height in millimetres
    HorzRes = 8,           ///< printable width in pixels
    VertRes = 10,          ///< printable height in pixels
    LogPixelsX = 88,       ///< pixels per inch across
    LogPixelsY = 90,       ///< pixels per inch down
    PhysicalWidth = 110,   ///< paper width in pixels
    PhysicalHeight = 111,  ///< paper height in pixels
    PhysicalOffsetX = 112, ///< left unprintable margin in pixels
    PhysicalOffsetY = 113, ///< top unprintable margin in pixels
};

/// A font as a device is asked for it.
struct LogFont {
    int32_t lfHeight = 0; ///< negative: height of the characters without leading, in device pixels
    int32_t lfWidth = 0;
    int32_t lfEscapement = 0;
    int32_t lfOrientation = 0;
    int32_t lfWeight = 400;
    uint8_t lfItalic = 0;
    uint8_t lfUnderline = 0;
    uint8_t lfStrikeOut = 0;
    std::string lfFaceName;

    bool operator==(const LogFont&) const = default;
};

/// Results of StartDoc that are no job.
namespace spool {
inline constexpr int32_t Error = -1;
inline constexpr int32_t UserAbort = -3; ///< the user withdrew, when asked for a file for example
} // namespace spool

/// Port: one open printer, from StartDoc to EndDoc its one job. Coordinates are device pixels from the upper
/// left corner of the printable area. Results above 0 mean success. Throws nothing.
class PrinterDevice {
public:
    virtual ~PrinterDevice() = default;

    virtual int32_t GetDeviceCaps(DeviceCap index) const = 0;
    /// Before StartDoc: the paper of the job by its code (vlPaperSize). False: the printer keeps its own.
    virtual bool setPaperSize(int32_t code) = 0;
    /// Before StartDoc. False: the device prints one copy only, whatever is wanted.
    virtual bool setCopies(int32_t copies) = 0;

    /// A handle, 0 on failure.
    virtual int32_t CreateFontIndirect(const LogFont& font) = 0;
    virtual void SelectObject(int32_t font) = 0;
    virtual void DeleteObject(int32_t font) = 0;
    /// In the selected font.
    virtual Size GetTextExtentPoint32(const std::string& text) const = 0;
    /// The upper left corner of the text's box at x, y.
    virtual bool TextOut(int32_t x, int32_t y, const std::string& text) = 0;
    /// The source part of the picture (its pixels) so that it fills the destination. A 1-bit picture reaches
    /// the device as 1 bit.
    virtual bool drawRaster(const Raster& picture, const Rectangle& source, const Rectangle& destination) = 0;

    virtual int32_t StartDoc(const std::string& name) = 0;
    virtual int32_t StartPage() = 0;
    virtual int32_t EndPage() = 0;
    virtual int32_t EndDoc() = 0;
    /// Nothing of the job is printed that is not on paper yet.
    virtual void AbortDoc() = 0;
    /// Why the last call failed, in the print system's own words; "" where it does not say.
    virtual std::string problem() const = 0;
};

} // namespace pixmo
