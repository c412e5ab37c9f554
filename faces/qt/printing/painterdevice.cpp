#include "faces/qt/printing/painterdevice.h"

#include "faces/qt/ports/texts.h"

#include <QFontMetrics>
#include <cstdlib>

namespace pixmo::qt {

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
    const QFontMetrics metrics(selected_);
    return {metrics.horizontalAdvance(toQt(text)), metrics.height()};
}

bool PainterDevice::TextOut(int32_t x, int32_t y, const std::string& text) {
    if (!painter_.isActive())
        return false;
    painter_.setFont(selected_);
    painter_.setPen(Qt::black);
    painter_.drawText(QPoint(x, y + QFontMetrics(selected_).ascent()), toQt(text));
    return true;
}

} // namespace pixmo::qt
