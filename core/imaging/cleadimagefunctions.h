#pragma once

#include "core/base/toolbar.h"
#include "core/diag/cerrobject.h"
#include "core/imaging/pagedecoder.h"
#include "core/imaging/rasterview.h"

#include <cstdint>
#include <filesystem>
#include <span>
#include <vector>

namespace pixmo {

/// Turns page files and page bytes into the displayed picture. Operations answer 0, or the number of the
/// error that they left in the error object; a failed load leaves the view as it was.
///
/// `EncBytes` is the count of leading bytes whose order is reversed, -1 for all (cClientHandlers::N5148F).
class cLeadImageFunctions {
public:
    using Bytes = std::vector<uint8_t>;

    /// All three outlive this object.
    cLeadImageFunctions(cErrObject& errorObject, RasterView& imageWindow, const PageDecoder& decoder);

    cErrObject& ERRR() const { return errorObject_; }
    RasterView& ImageWindow() const { return imageWindow_; }

    int32_t imgFileToArray(const std::filesystem::path& path, Bytes& array) const;
    int32_t imgDecryptArray(std::span<uint8_t> array, int32_t encBytes) const;
    int32_t imgDecryptToArray(const std::filesystem::path& path, Bytes& array, int32_t encBytes) const;
    int32_t imgArrayToFile(std::span<const uint8_t> array, const std::filesystem::path& path) const;
    /// Writes a restored copy beside the file: "page.dat" gives "page.restored.dat".
    int32_t imgDecryptToFile(const std::filesystem::path& path, int32_t encBytes) const;

    int32_t LoadArrayToRaster(std::span<const uint8_t> array, Raster& raster) const;
    int32_t LoadImageFromArray(std::span<const uint8_t> array);
    int32_t LoadImageInViewer(const std::filesystem::path& path);
    int32_t imgDisplayEncryptedPageArray(std::span<uint8_t> array, int32_t encBytes);
    int32_t imgDisplayEncryptedPage(const std::filesystem::path& path, int32_t encBytes);

    bool imgDisplayed() const { return imageWindow_.hasPicture(); }
    int32_t imgClear();

    int32_t imgFitWidth();
    /// The mouse drags the picture; the button given, if any, is pressed.
    int32_t imgPan(ToolButton* button);

    bool GrayScale() const { return imageWindow_.GrayScale(); }
    void setGrayScale(bool on) { imageWindow_.setGrayScale(on); }

private:
    cErrObject& errorObject_;
    RasterView& imageWindow_;
    const PageDecoder& decoder_;
};

} // namespace pixmo
