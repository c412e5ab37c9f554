#include "faces/com/windows/fonts.h"

#include "faces/com/base/widetext.h"
#include "faces/com/windows/dpi.h"

#include <cmath>

namespace pixmo::com {

namespace {

constexpr double PointsAnInch = 72;
constexpr double FixedSize = 9; ///< points

LONG heightOf(double points, int dpi) {
    return -static_cast<LONG>(std::lround(points * dpi / PointsAnInch));
}

void setName(LOGFONTW& font, const std::wstring& name) {
    lstrcpynW(font.lfFaceName, name.c_str(), LF_FACESIZE);
}

} // namespace

LOGFONTW messageFont() {
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof metrics;
    SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, metrics.cbSize, &metrics, 0);
    return metrics.lfMessageFont;
}

FontHandle makeFont(const Font& font, int dpi) {
    LOGFONTW wanted = messageFont();
    if (font.Name.empty()) {
        wanted.lfHeight = MulDiv(wanted.lfHeight, dpi, dpiOf(nullptr));
    } else {
        wanted = {};
        wanted.lfHeight = heightOf(font.Size, dpi);
        wanted.lfWeight = font.Bold ? FW_BOLD : FW_NORMAL;
        wanted.lfItalic = font.Italic;
        wanted.lfUnderline = font.Underline;
        wanted.lfStrikeOut = font.Strikethrough;
        wanted.lfCharSet = DEFAULT_CHARSET;
        setName(wanted, toWide(font.Name));
    }
    return FontHandle(CreateFontIndirectW(&wanted));
}

FontHandle makeFixedFont(int dpi) {
    LOGFONTW wanted{};
    wanted.lfHeight = heightOf(FixedSize, dpi);
    wanted.lfCharSet = DEFAULT_CHARSET;
    wanted.lfPitchAndFamily = FIXED_PITCH | FF_MODERN;
    setName(wanted, L"Courier New");
    return FontHandle(CreateFontIndirectW(&wanted));
}

FontHandle makeBold(HFONT font, double size) {
    LOGFONTW wanted{};
    GetObjectW(font, sizeof wanted, &wanted);
    wanted.lfWeight = FW_BOLD;
    wanted.lfHeight = static_cast<LONG>(std::lround(wanted.lfHeight * size));
    return FontHandle(CreateFontIndirectW(&wanted));
}

SIZE textSize(HFONT font, const std::wstring& text) {
    const ScreenDc screen;
    const Selected selected(screen.get(), font);
    SIZE size{};
    const std::wstring measured = text.empty() ? L"X" : text;
    GetTextExtentPoint32W(screen.get(), measured.c_str(), static_cast<int>(measured.size()), &size);
    if (text.empty())
        size.cx = 0;
    return size;
}

} // namespace pixmo::com
