#include "core/printing/cprinter.h"

#include "core/base/error.h"
#include "core/base/product.h"
#include "core/base/text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>
#include <utility>

namespace pixmo {

namespace {

constexpr double TwipsPerMillimetre = 56.7;

/// Fifteen digits, as few as say the same.
std::string numberText(double value) {
    std::array<char, 32> text{};
    const auto end =
        std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::general, 15);
    return {text.data(), end.ptr};
}

} // namespace

cPrinter::cPrinter(Printers& printers) : printers_(printers), deviceName_(printers.currentName()) {}

cPrinter::~cPrinter() {
    Delete_DC();
}

double cPrinter::twipsPerPixel(int32_t millimetres, int32_t pixels) {
    return pixels > 0 ? millimetres * TwipsPerMillimetre / pixels : 0;
}

std::string cPrinter::GetCaps() const {
    const std::array<std::pair<const char*, double>, 12> lines = {
        {{"LogPixels_X = ", LogPixels_X()},
         {"LogPixels_Y = ", LogPixels_Y()},
         {"Horz_Res = ", Horz_Res()},
         {"Vert_Res = ", Vert_Res()},
         {"Horz_Size = ", Horz_Size()},
         {"Vert_Size = ", Vert_Size()},
         {"Physical_Width = ", Physical_Width()},
         {"Physical_Height = ", Physical_Height()},
         {"PhysicalOffset_X = ", PhysicalOffset_X()},
         {"PhysicalOffset_Y = ", PhysicalOffset_Y()},
         {"TwipsPerPixelX = ", TwipsPerPixelX()},
         {"TwipsPerPixelY = ", TwipsPerPixelY()}}};
    std::string report = "Caps for Printer-> " + deviceName_;
    for (const auto& [label, value] : lines)
        report += std::string(LineBreak) + label + numberText(value);
    return report;
}

void cPrinter::GetTextExtentPoint_32(const std::string& text, int32_t& cx, int32_t& cy) const {
    const Size size = device_ ? device_->GetTextExtentPoint32(text) : Size();
    cx = size.width;
    cy = size.height;
}

bool cPrinter::ShowPrinter(intptr_t hwndOwner, int32_t flags) {
    const auto chosen = printers_.choose(hwndOwner, flags);
    if (!chosen)
        return false;
    deviceName_ = *chosen;
    SelectPrinter();
    // What is open is still the printer of before.
    Delete_DC();
    return true;
}

void cPrinter::SelectPrinter() {
    const auto names = printers_.names();
    if (std::find(names.begin(), names.end(), deviceName_) != names.end())
        printers_.setCurrent(deviceName_);
}

void cPrinter::LoadDefaultPrinterDC() {
    Delete_DC();
    deviceName_ = printers_.currentName();
    device_ = printers_.open();
}

void cPrinter::openOn(std::unique_ptr<PrinterDevice> device) {
    Delete_DC();
    device_ = std::move(device);
}

int32_t cPrinter::Start_Doc(const std::string& docName) {
    if (!device_)
        LoadDefaultPrinterDC();
    if (!device_)
        return spool::Error;
    return device_->StartDoc(docName.empty() ? std::string(product::Title) : docName);
}

int32_t cPrinter::Start_Page() {
    return device_ ? device_->StartPage() : spool::Error;
}

int32_t cPrinter::End_Page() {
    return device_ ? device_->EndPage() : spool::Error;
}

int32_t cPrinter::End_Doc() {
    return device_ ? device_->EndDoc() : spool::Error;
}

void cPrinter::Abort_Doc() {
    if (device_)
        device_->AbortDoc();
}

void cPrinter::Delete_DC() {
    DeleteFont();
    device_.reset();
}

bool cPrinter::Text_Out(const std::string& text, int32_t x, int32_t y) {
    return device_ && device_->TextOut(x, y, text);
}

// The figure across sizes the height too, so that text is in step with the layout where the two differ.
void cPrinter::SetFont(int16_t size, const std::string& faceName, int32_t weight, int16_t style) {
    const int32_t twips = size * 20;
    if (twips > std::numeric_limits<int16_t>::max() || twips < std::numeric_limits<int16_t>::min())
        throw overflowError();
    const double scale = TwipsPerPixelX();
    LogFont font;
    font.lfHeight = scale > 0 ? roundToLong(-twips / scale) : 0;
    font.lfWeight = weight;
    font.lfItalic = (style & Italic) != 0 ? 1 : 0;
    font.lfStrikeOut = (style & StrikeOut) != 0 ? 1 : 0;
    font.lfUnderline = (style & Underline) != 0 ? 1 : 0;
    font.lfFaceName = faceName;
    DeleteFont();
    if (!device_)
        return;
    font_ = device_->CreateFontIndirect(font);
    device_->SelectObject(font_);
}

void cPrinter::DeleteFont() {
    if (device_ && font_ != 0)
        device_->DeleteObject(font_);
    font_ = 0;
}

} // namespace pixmo
