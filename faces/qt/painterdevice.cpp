#include "faces/qt/painterdevice.h"

#include "faces/qt/texts.h"

#include <QFontMetrics>
#include <cmath>
#include <cstdlib>

namespace pixmo::qt {

namespace {

int32_t millimetres(int pixels, int resolution) {
    return static_cast<int32_t>(std::lround(pixels * 25.4 / resolution));
}

} // namespace

int32_t PainterDevice::GetDeviceCaps(DeviceCap index) const {
    const int dpi = resolution();
    const QPageLayout layout = pageLayout();
    const QRect paper = layout.fullRectPixels(dpi);
    const QRect printable = layout.paintRectPixels(dpi);
    switch (index) {
    case DeviceCap::HorzSize:
        return millimetres(printable.width(), dpi);
    case DeviceCap::VertSize:
        return millimetres(printable.height(), dpi);
    case DeviceCap::HorzRes:
        return printable.width();
    case DeviceCap::VertRes:
        return printable.height();
    case DeviceCap::LogPixelsX:
    case DeviceCap::LogPixelsY:
        return dpi;
    case DeviceCap::PhysicalWidth:
        return paper.width();
    case DeviceCap::PhysicalHeight:
        return paper.height();
    case DeviceCap::PhysicalOffsetX:
        return printable.left();
    case DeviceCap::PhysicalOffsetY:
        return printable.top();
    }
    return 0;
}

int32_t PainterDevice::CreateFontIndirect(const LogFont& font) {
    QFont made(toQt(font.lfFaceName));
    made.setPixelSize(qMax(1, std::abs(font.lfHeight)));
    made.setWeight(static_cast<QFont::Weight>(qBound(1, font.lfWeight, 1000)));
    made.setItalic(font.lfItalic != 0);
    made.setUnderline(font.lfUnderline != 0);
    made.setStrikeOut(font.lfStrikeOut != 0);
    // Positions of glyphs must not depend on the resolution that the sheet is shown at.
    made.setHintingPreference(QFont::PreferNoHinting);
    fonts_[++lastFont_] = made;
    return lastFont_;
}

void PainterDevice::SelectObject(int32_t font) {
    const auto found = fonts_.find(font);
    if (found != fonts_.end())
        selected_ = found->second;
}

Size PainterDevice::GetTextExtentPoint32(const std::string& text) const {
    return {metrics().horizontalAdvance(toQt(text)), metrics().height()};
}

bool PainterDevice::TextOut(int32_t x, int32_t y, const std::string& text) {
    if (!painter_.isActive())
        return false;
    painter_.setFont(selected_);
    painter_.setPen(Qt::black);
    painter_.drawText(QPoint(x, y + metrics().ascent()), toQt(text));
    return true;
}

} // namespace pixmo::qt
