#include "core/printing/pagelayout.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace pixmo {

namespace {

struct Inches {
    double width;
    double height;
};

Inches sizeOf(const Raster& picture) {
    return {picture.width / picture.xResolution, picture.height / picture.yResolution};
}

Inches sizeOf(const SheetArea& sheet) {
    return {sheet.area.width / sheet.xResolution, sheet.area.height / sheet.yResolution};
}

double scaleToFit(Inches picture, Inches area) {
    return std::min(area.width / picture.width, area.height / picture.height);
}

int32_t devicePixels(double inches, double resolution) {
    return std::max(1, static_cast<int32_t>(std::lround(inches * resolution)));
}

Rectangle inMiddle(Size size, const Rectangle& area) {
    return {area.left + (area.width - size.width) / 2, area.top + (area.height - size.height) / 2, size.width,
            size.height};
}

/// One direction of a full-size picture: how many of its pixels fit, cut the same on both sides.
void cutToFit(int32_t& sourceStart, int32_t& sourceLength, int32_t& length, int32_t room) {
    if (length <= room)
        return;
    const auto kept = std::max<int32_t>(
        1, static_cast<int32_t>(static_cast<int64_t>(sourceLength) * room / std::max(length, 1)));
    length = static_cast<int32_t>(std::lround(static_cast<double>(length) * kept / sourceLength));
    sourceStart += (sourceLength - kept) / 2;
    sourceLength = kept;
}

} // namespace

PicturePlace placeFitted(const Raster& picture, const SheetArea& sheet, bool mayTurn) {
    PicturePlace place;
    place.source = {0, 0, picture.width, picture.height};
    Inches size = sizeOf(picture);
    const Inches area = sizeOf(sheet);
    const Inches onItsSide = {size.height, size.width};
    const bool landscapeOnPortrait = size.width > size.height && area.width < area.height;
    if (mayTurn && landscapeOnPortrait && scaleToFit(onItsSide, area) > scaleToFit(size, area)) {
        place.turned = true;
        place.source = {0, 0, picture.height, picture.width};
        size = onItsSide;
    }
    const double scale = scaleToFit(size, area);
    const Size fitted = {std::min(sheet.area.width, devicePixels(size.width * scale, sheet.xResolution)),
                         std::min(sheet.area.height, devicePixels(size.height * scale, sheet.yResolution))};
    place.destination = inMiddle(fitted, sheet.area);
    return place;
}

PicturePlace placeFullSize(const Raster& picture, const SheetArea& sheet) {
    PicturePlace place;
    place.source = {0, 0, picture.width, picture.height};
    const Inches size = sizeOf(picture);
    Size full = {devicePixels(size.width, sheet.xResolution), devicePixels(size.height, sheet.yResolution)};
    place.cropped = full.width > sheet.area.width || full.height > sheet.area.height;
    cutToFit(place.source.left, place.source.width, full.width, sheet.area.width);
    cutToFit(place.source.top, place.source.height, full.height, sheet.area.height);
    place.destination = inMiddle(full, sheet.area);
    return place;
}

} // namespace pixmo
