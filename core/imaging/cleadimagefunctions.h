#pragma once

#include "core/base/event.h"
#include "core/base/toolbar.h"
#include "core/diag/cerrobject.h"
#include "core/imaging/pagedecoder.h"
#include "core/imaging/rasterview.h"

#include <array>
#include <cstdint>
#include <filesystem>
#include <span>
#include <string>
#include <vector>

namespace pixmo {

/// Turns page files and page bytes into the displayed picture. Operations answer 0, or the number of the
/// error that they left in the error object; a failed load leaves the view as it was.
///
/// `EncBytes` is the count of leading bytes whose order is reversed, -1 for all (reverseProtectedBytes).
class cLeadImageFunctions {
public:
    using Bytes = std::vector<uint8_t>;

    /// All three outlive this object.
    cLeadImageFunctions(cErrObject& errorObject, RasterView& imageWindow, const PageDecoder& decoder);

    cErrObject& ERRR() const { return errorObject_; }

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

    /// A tenth more or less of the present zoom; out only while it is above 10 percent.
    int32_t imgZoomIn();
    int32_t imgZoomOut();
    int32_t imgFitWidth();
    int32_t imgFitBest();
    int32_t imgFitHeight();
    int32_t imgRotateRight();
    int32_t imgRotateLeft();

    /// The mouse draws rubber bands, or drags the picture; the button given, if any, is pressed.
    int32_t imgSelection(ToolButton* button);
    int32_t imgPan(ToolButton* button);

    /// Under a name that is saved already, the view replaces the one before.
    int32_t SaveCurrentView(const std::string& name);
    int32_t RestoreSavedView(const std::string& name);
    int32_t ResetSavedViews();

    /// A drag begins and ends. Without an icon of the host's the pointer shows what the drag does.
    int32_t EventHandler_MouseDown(bool pan, bool select, bool hasMouseIcon);
    int32_t EventHandler_MouseUp(bool pan, bool select);
    /// Zooms to the rectangle that the user drew, with one repaint.
    int32_t EventHandler_RubberBand();

    bool FastPanning() const { return imageWindow_.FastPanning; }
    void setFastPanning(bool on) { imageWindow_.FastPanning = on; }
    /// A line for developers about each picture that is loaded, while switched on.
    Event<const std::string&> DebugPrint;
    void setDebugPrinting(bool on) { debugPrinting_ = on; }

    bool GrayScale() const { return imageWindow_.GrayScale(); }
    void setGrayScale(bool on) { imageWindow_.setGrayScale(on); }

private:
    cErrObject& errorObject_;
    RasterView& imageWindow_;
    const PageDecoder& decoder_;

    /// Sixteen coordinates in whole numbers: destination and its clip, then source and its clip.
    struct SavedView {
        std::string name;
        std::array<int32_t, 16> coordinates{};
    };
    std::vector<SavedView> savedViews_;
    bool savedGrayScale_ = false; ///< while a fast drag goes on
    bool dragIsFast_ = false;
    bool debugPrinting_ = false;
};

} // namespace pixmo
