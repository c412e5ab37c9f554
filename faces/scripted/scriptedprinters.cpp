#include "faces/scripted/scriptedprinters.h"

#include "core/base/text.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace pixmo::scripted {

namespace {

std::string place(const Rectangle& box) {
    return std::to_string(box.left) + "," + std::to_string(box.top) + " " + std::to_string(box.width) + "x" +
           std::to_string(box.height);
}

} // namespace

PrinterDevice::PrinterDevice(std::shared_ptr<PrinterScript> script) : script_(std::move(script)) {
    ++script_->openDevices;
}

PrinterDevice::~PrinterDevice() {
    --script_->openDevices;
}

bool PrinterDevice::setPaperSize(int32_t code) {
    script_->record.push_back("paper " + std::to_string(code));
    return std::find(script_->papers.begin(), script_->papers.end(), code) != script_->papers.end();
}

bool PrinterDevice::setCopies(int32_t copies) {
    script_->record.push_back("copies " + std::to_string(copies));
    return script_->makesCopies;
}

int32_t PrinterDevice::CreateFontIndirect(const LogFont& font) {
    script_->fonts.push_back(font);
    ++script_->liveFonts;
    return static_cast<int32_t>(script_->fonts.size());
}

void PrinterDevice::DeleteObject(int32_t) {
    --script_->liveFonts;
}

Size PrinterDevice::GetTextExtentPoint32(const std::string& text) const {
    if (selected_ == 0)
        return {};
    const int32_t height = std::abs(script_->fonts[static_cast<size_t>(selected_ - 1)].lfHeight);
    return {static_cast<int32_t>(characterCount(text)) * height / 2, height};
}

bool PrinterDevice::TextOut(int32_t x, int32_t y, const std::string& text) {
    script_->record.push_back("text " + std::to_string(x) + "," + std::to_string(y) + " " + text);
    return script_->drawsTexts;
}

bool PrinterDevice::drawRaster(const Raster& picture, const Rectangle& source, const Rectangle& destination) {
    const bool bilevel = picture.format == PixelFormat::Bilevel;
    script_->record.push_back((bilevel ? "bits " : "picture ") + std::to_string(picture.width) + "x" +
                              std::to_string(picture.height) + " of " + place(source) + " at " +
                              place(destination));
    return script_->drawsPictures;
}

int32_t PrinterDevice::StartDoc(const std::string& name) {
    script_->record.push_back("document " + name);
    return script_->startDoc;
}

int32_t PrinterDevice::StartPage() {
    if (script_->onStartPage)
        script_->onStartPage();
    script_->record.emplace_back("page");
    return ++page_ == script_->vanishesAtPage ? 0 : 1;
}

int32_t PrinterDevice::EndPage() {
    script_->record.emplace_back("end page");
    return 1;
}

int32_t PrinterDevice::EndDoc() {
    script_->record.emplace_back("end document");
    return script_->endDoc;
}

Printers::Printers() {
    script->caps = {{DeviceCap::HorzSize, 203},       {DeviceCap::VertSize, 267},
                    {DeviceCap::HorzRes, 2400},       {DeviceCap::VertRes, 3150},
                    {DeviceCap::LogPixelsX, 300},     {DeviceCap::LogPixelsY, 300},
                    {DeviceCap::PhysicalWidth, 2550}, {DeviceCap::PhysicalHeight, 3300},
                    {DeviceCap::PhysicalOffsetX, 75}, {DeviceCap::PhysicalOffsetY, 75}};
}

std::optional<std::string> Printers::choose(intptr_t, int32_t) {
    return chosen;
}

std::unique_ptr<pixmo::PrinterDevice> Printers::open() {
    if (!script->opens || current.empty())
        return nullptr;
    return std::make_unique<PrinterDevice>(script);
}

Raster PrintClient::printedPage(int16_t page) {
    if (onPage)
        onPage(page);
    return given;
}

} // namespace pixmo::scripted
