#include "core/imaging/cleadimagefunctions.h"

#include "core/base/files.h"
#include "core/cipher/pageprotection.h"

#include <new>
#include <string>
#include <utility>

namespace pixmo {

cLeadImageFunctions::cLeadImageFunctions(cErrObject& errorObject, RasterView& imageWindow,
                                         const PageDecoder& decoder)
    : errorObject_(errorObject), imageWindow_(imageWindow), decoder_(decoder) {}

int32_t cLeadImageFunctions::imgFileToArray(const std::filesystem::path& path, Bytes& array) const {
    return errorObject_.attempt("cLeadImageFunctions.imgFileToArray", [&] { array = readFile(path); });
}

int32_t cLeadImageFunctions::imgDecryptArray(std::span<uint8_t> array, int32_t encBytes) const {
    return errorObject_.attempt("cLeadImageFunctions.imgDecryptArray",
                                [&] { reverseProtectedBytes(array, encBytes); });
}

int32_t cLeadImageFunctions::imgDecryptToArray(const std::filesystem::path& path, Bytes& array,
                                               int32_t encBytes) const {
    const int32_t status = imgFileToArray(path, array);
    return status != 0 ? status : imgDecryptArray(array, encBytes);
}

int32_t cLeadImageFunctions::imgArrayToFile(std::span<const uint8_t> array,
                                            const std::filesystem::path& path) const {
    return errorObject_.attempt("cLeadImageFunctions.imgArrayToFile", [&] { writeFile(path, array); });
}

int32_t cLeadImageFunctions::imgDecryptToFile(const std::filesystem::path& path, int32_t encBytes) const {
    Bytes array;
    const int32_t status = imgDecryptToArray(path, array, encBytes);
    if (status != 0)
        return status;
    std::filesystem::path restored = path;
    restored.replace_extension(".restored" + path.extension().string());
    return imgArrayToFile(array, restored);
}

int32_t cLeadImageFunctions::LoadArrayToRaster(std::span<const uint8_t> array, Raster& raster) const {
    return errorObject_.attempt("cLeadImageFunctions.LoadArrayToRaster", [&] {
        try {
            raster = decoder_.decode(array);
        } catch (const std::bad_alloc&) {
            throw Error(error_number::InvalidArgument, "Error allocating memory for image.");
        }
    });
}

int32_t cLeadImageFunctions::LoadImageFromArray(std::span<const uint8_t> array) {
    Raster raster;
    const int32_t status = LoadArrayToRaster(array, raster);
    if (status != 0)
        return status;
    return errorObject_.attempt("cLeadImageFunctions.LoadImageFromArray", [&] {
        if (debugPrinting_)
            DebugPrint.raise("Loaded " + std::to_string(raster.width) + " x " +
                             std::to_string(raster.height) + " pixels, " +
                             std::to_string(raster.bitsPerPixel) + " bits per pixel, from " +
                             std::to_string(array.size()) + " bytes");
        imageWindow_.setRaster(std::move(raster));
    });
}

int32_t cLeadImageFunctions::LoadImageInViewer(const std::filesystem::path& path) {
    Bytes array;
    const int32_t status = imgFileToArray(path, array);
    return status != 0 ? status : LoadImageFromArray(array);
}

int32_t cLeadImageFunctions::imgDisplayEncryptedPageArray(std::span<uint8_t> array, int32_t encBytes) {
    const int32_t status = imgDecryptArray(array, encBytes);
    return status != 0 ? status : LoadImageFromArray(array);
}

int32_t cLeadImageFunctions::imgDisplayEncryptedPage(const std::filesystem::path& path, int32_t encBytes) {
    Bytes array;
    const int32_t status = errorObject_.attempt("cLeadImageFunctions.imgDisplayEncryptedPage", [&] {
        if (!fileExists(path))
            throw Error(error_number::InvalidArgument, "Invalid image file path: '" + path.string() + "'");
        array = readFile(path);
        if (array.empty())
            throw Error(error_number::InvalidArgument, "File '" + path.string() + "' was empty.");
    });
    return status != 0 ? status : imgDisplayEncryptedPageArray(array, encBytes);
}

int32_t cLeadImageFunctions::imgClear() {
    return errorObject_.attempt("cLeadImageFunctions.imgClear", [&] { imageWindow_.clear(); });
}

} // namespace pixmo
