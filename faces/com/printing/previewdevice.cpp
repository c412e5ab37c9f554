#include "faces/com/printing/previewdevice.h"

#include "core/imaging/reducer.h"
#include "faces/com/base/widetext.h"

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

namespace pixmo::com {

namespace {

int32_t paperLength(const pixmo::PrinterDevice& printer, DeviceCap index) {
    return std::max(1, printer.GetDeviceCaps(index));
}

} // namespace

PreviewDevice::PreviewDevice(const pixmo::PrinterDevice& printer, std::shared_ptr<PixelBuffer> pixels)
    : printer_(printer), pixels_(std::move(pixels)), measuring_(CreateCompatibleDC(nullptr)) {
    const PixelSurface surface = pixels_->surface();
    size_ = {surface.width, surface.height};
    for (int32_t y = 0; y < surface.height; ++y)
        std::ranges::fill(surface.row(y), 0xFFFFFFFFU);
}

PreviewDevice::~PreviewDevice() {
    DeleteDC(measuring_);
}

int32_t PreviewDevice::across(double x) const {
    return static_cast<int32_t>(std::lround((x + GetDeviceCaps(DeviceCap::PhysicalOffsetX)) * size_.width /
                                            paperLength(printer_, DeviceCap::PhysicalWidth)));
}

int32_t PreviewDevice::down(double y) const {
    return static_cast<int32_t>(std::lround((y + GetDeviceCaps(DeviceCap::PhysicalOffsetY)) * size_.height /
                                            paperLength(printer_, DeviceCap::PhysicalHeight)));
}

// Each character stands where the printer puts it; its form is that of the smaller font.
bool PreviewDevice::TextOut(int32_t x, int32_t y, const std::string& text) {
    const HFONT printed = selected();
    if (!printed)
        return false;
    const std::wstring wide = toWide(text);
    const int length = static_cast<int>(wide.size());
    std::vector<INT> ends(wide.size());
    SIZE extent{};
    const Selected measured(measuring_, printed);
    GetTextExtentExPointW(measuring_, wide.c_str(), length, 0, nullptr, ends.data(), &extent);
    std::vector<INT> advances(wide.size());
    int32_t at = across(x);
    for (size_t i = 0; i < ends.size(); ++i) {
        const int32_t next = across(x + ends[i]);
        advances[i] = next - at;
        at = next;
    }
    LOGFONTW smaller{};
    GetObjectW(printed, sizeof smaller, &smaller);
    smaller.lfHeight = -std::max(1, std::abs(down(y - smaller.lfHeight) - down(y)));
    smaller.lfQuality = ANTIALIASED_QUALITY;
    const FontHandle font(CreateFontIndirectW(&smaller));
    const HDC dc = pixels_->dc();
    const Selected shown(dc, font.get());
    SetBkMode(dc, TRANSPARENT);
    return ExtTextOutW(dc, across(x), down(y), 0, nullptr, wide.c_str(), static_cast<UINT>(length),
                       advances.data()) != 0;
}

bool PreviewDevice::drawRaster(const Raster& picture, const Rectangle& source, const Rectangle& destination) {
    const Rectangle place = {across(destination.left), down(destination.top),
                             across(destination.left + destination.width) - across(destination.left),
                             down(destination.top + destination.height) - down(destination.top)};
    const RealRectangle part = {static_cast<double>(source.left), static_cast<double>(source.top),
                                static_cast<double>(source.width), static_cast<double>(source.height)};
    drawPicture(picture, part, pixels_->surface(), place, {0, 0, size_.width, size_.height},
                BilevelLook::ScaleToGray);
    return true;
}

} // namespace pixmo::com
