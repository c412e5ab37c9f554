#include "codecs/resolution.h"

#include <algorithm>

namespace pixmo {

namespace {

/// No scanner and no fax lies outside; a value there is a unit misread or garbage. Written so that NaN fails.
bool credible(double dotsPerInch) {
    return dotsPerInch >= 4 && dotsPerInch <= 20'000;
}

bool credibleShape(double x, double y) {
    return x > 0 && y > 0 && x <= y * 10 && y <= x * 10;
}

} // namespace

void setResolution(Raster& raster, double xDotsPerInch, double yDotsPerInch) {
    if (!credible(xDotsPerInch) && !credible(yDotsPerInch))
        return;
    const double x = credible(xDotsPerInch) ? xDotsPerInch : yDotsPerInch;
    const double y = credible(yDotsPerInch) ? yDotsPerInch : xDotsPerInch;
    if (!credibleShape(x, y))
        return;
    raster.xResolution = x;
    raster.yResolution = y;
}

void setPixelShape(Raster& raster, double xDots, double yDots) {
    if (!credibleShape(xDots, yDots))
        return;
    const double unit = 96 / std::min(xDots, yDots);
    raster.xResolution = xDots * unit;
    raster.yResolution = yDots * unit;
}

} // namespace pixmo
