#include "faces/com/face/controlpicture.h"

#include "core/base/product.h"
#include "core/drawing/pathpainter.h"
#include "core/imaging/viewcomposer.h"
#include "core/imaging/viewgeometry.h"
#include "faces/com/base/pixelbuffer.h"
#include "faces/com/base/widetext.h"
#include "faces/com/windows/colours.h"
#include "faces/com/windows/fonts.h"

#include <algorithm>
#include <cstdlib>
#include <string>
#include <vector>

namespace pixmo::com {

namespace {

/// A side of the drawn picture; a larger target stretches it.
constexpr int32_t LongestSide = 4096;
constexpr double PointsOfText = 9;

/// In the target's device pixels, within bounds.
Size deviceSize(HDC target, const RECT& bounds) {
    POINT corners[2] = {{bounds.left, bounds.top}, {bounds.right, bounds.bottom}};
    LPtoDP(target, corners, 2);
    const int32_t width = std::abs(corners[1].x - corners[0].x);
    const int32_t height = std::abs(corners[1].y - corners[0].y);
    const double shrink = std::min(1.0, static_cast<double>(LongestSide) / std::max({width, height, 1}));
    return {static_cast<int32_t>(width * shrink), static_cast<int32_t>(height * shrink)};
}

void drawPage(const RasterView& view, HDC target, const RECT& bounds, const ViewLook& look) {
    const Size size = deviceSize(target, bounds);
    if (size.empty())
        return;
    const Raster& raster = view.raster();
    ViewGeometry geometry;
    geometry.setPicture({raster.width, raster.height}, raster.xResolution, raster.yResolution);
    geometry.setViewport(size, GetDeviceCaps(target, LOGPIXELSX));
    geometry.fitBest();
    std::vector<uint32_t> pixels(static_cast<size_t>(size.width) * static_cast<size_t>(size.height));
    ViewComposer().compose({pixels.data(), size.width, size.height, static_cast<size_t>(size.width)}, &raster,
                           geometry.destination(), look);
    const BITMAPINFO info = describePixels(size);
    SetStretchBltMode(target, COLORONCOLOR);
    StretchDIBits(target, bounds.left, bounds.top, bounds.right - bounds.left, bounds.bottom - bounds.top, 0,
                  0, size.width, size.height, pixels.data(), &info, DIB_RGB_COLORS, SRCCOPY);
}

/// In the middle, in the host's colours.
void drawText(HDC target, const RECT& bounds, const std::wstring& text, COLORREF colour) {
    pixmo::Font description;
    description.Name = toUtf8(messageFont().lfFaceName);
    description.Size = PointsOfText;
    const FontHandle font = makeFont(description, GetDeviceCaps(target, LOGPIXELSY));
    const Selected selected(target, font.get());
    RECT place = bounds;
    SetBkMode(target, TRANSPARENT);
    SetTextColor(target, colour);
    place.top += std::max<LONG>(0, (place.bottom - place.top) / 2 - (place.bottom - place.top) / 8);
    DrawTextW(target, text.c_str(), -1, &place, DT_CENTER | DT_WORDBREAK | DT_NOPREFIX);
}

} // namespace

void drawControl(ImageView& control, HDC target, const RECT& bounds) {
    const int saved = SaveDC(target);
    const COLORREF back = toColorRef(std::get<Colour>(control.property("BackColor")));
    const COLORREF fore = toColorRef(std::get<Colour>(control.property("ForeColor")));
    IntersectClipRect(target, bounds.left, bounds.top, bounds.right, bounds.bottom);
    const BrushHandle brush(CreateSolidBrush(back));
    FillRect(target, &bounds, brush.get());
    if (control.isPageDisplayed()) {
        const RasterView& view = control.lvrImage();
        ViewLook look = view.look();
        look.background = Opaque | rgbOf(back);
        drawPage(view, target, bounds, look);
    } else {
        const std::string notice = control.viewNotice();
        drawText(target, bounds, toWide(notice.empty() ? product::Title : notice), fore);
    }
    RestoreDC(target, saved);
}

} // namespace pixmo::com
