#include "codecs/newraster.h"

#include "codecs/codecerror.h"

#include <limits>

namespace pixmo {

namespace {

constexpr uint64_t MaxSide = std::numeric_limits<int32_t>::max();

std::string sizeText(uint64_t width, uint64_t height) {
    return std::to_string(width) + " x " + std::to_string(height) + " pixels";
}

} // namespace

void checkSize(uint64_t width, uint64_t height, PixelFormat format, const DecodeLimits& limits) {
    if (width == 0 || height == 0)
        throw pictureError("The picture has no pixels: its size is given as " + sizeText(width, height) +
                           ".");
    if (width > MaxSide || height > MaxSide || width > limits.pixels / height)
        throw pictureError("The picture is too large: " + sizeText(width, height) +
                           " are above the limit of " + std::to_string(limits.pixels) + " pixels.");
    const uint64_t rowBytes = packedRowSize(format, static_cast<int32_t>(width)) + 7;
    if (rowBytes > limits.bytes / height)
        throw pictureError("The picture is too large: " + sizeText(width, height) +
                           " take more memory than the limit of " + std::to_string(limits.bytes) + " bytes.");
}

void checkWorkingMemory(uint64_t bytes, const char* purpose, const DecodeLimits& limits) {
    if (bytes > limits.bytes)
        throw pictureError("The picture is too large: " + std::to_string(bytes) + " bytes for " + purpose +
                           " are above the limit of " + std::to_string(limits.bytes) + " bytes.");
}

Raster newRaster(PixelFormat format, uint64_t width, uint64_t height, const DecodeLimits& limits) {
    checkSize(width, height, format, limits);
    return makeRaster(format, static_cast<int32_t>(width), static_cast<int32_t>(height));
}

} // namespace pixmo
