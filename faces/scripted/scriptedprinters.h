#pragma once

#include "core/platform/printers.h"
#include "core/printing/printclient.h"

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace pixmo::scripted {

/// What the printers of a script did, and what they are to do.
struct PrinterScript {
    std::map<DeviceCap, int32_t> caps;
    std::vector<int32_t> papers; ///< codes of the sizes that it has
    bool makesCopies = false;    ///< by itself
    bool opens = true;
    int32_t startDoc = 7;
    int32_t endDoc = 1;
    int32_t vanishesAtPage = 0; ///< StartPage of that page fails
    bool drawsPictures = true;
    bool drawsTexts = true;
    std::string problem;
    /// Text is as wide as it has characters times half the font's height.
    std::vector<std::string> record; ///< calls in their order
    std::vector<LogFont> fonts;
    int32_t openDevices = 0;
    int32_t liveFonts = 0;
    std::function<void()> onStartPage;
};

/// A device that records what is drawn: "text 10,20 Page 1", "picture 100x200 of 0,0 100x200 at 0,0 50x100".
class PrinterDevice : public pixmo::PrinterDevice {
public:
    explicit PrinterDevice(std::shared_ptr<PrinterScript> script);
    ~PrinterDevice() override;
    PrinterDevice(const PrinterDevice&) = delete;
    PrinterDevice& operator=(const PrinterDevice&) = delete;

    int32_t GetDeviceCaps(DeviceCap index) const override { return script_->caps.at(index); }
    bool setPaperSize(int32_t code) override;
    bool setCopies(int32_t copies) override;
    int32_t CreateFontIndirect(const LogFont& font) override;
    void SelectObject(int32_t font) override { selected_ = font; }
    void DeleteObject(int32_t font) override;
    Size GetTextExtentPoint32(const std::string& text) const override;
    bool TextOut(int32_t x, int32_t y, const std::string& text) override;
    bool drawRaster(const Raster& picture, const Rectangle& source, const Rectangle& destination) override;
    int32_t StartDoc(const std::string& name) override;
    int32_t StartPage() override;
    int32_t EndPage() override;
    int32_t EndDoc() override;
    void AbortDoc() override { script_->record.emplace_back("abort"); }
    std::string problem() const override { return script_->problem; }

private:
    std::shared_ptr<PrinterScript> script_;
    int32_t selected_ = 0;
    int32_t page_ = 0;
};

class Printers : public pixmo::Printers {
public:
    Printers();

    std::vector<std::string> names() const override { return installed; }
    std::string currentName() const override { return current; }
    void setCurrent(const std::string& name) override { current = name; }
    std::optional<std::string> choose(intptr_t owner, int32_t flags) override;
    std::unique_ptr<pixmo::PrinterDevice> open() override;

    std::vector<std::string> installed = {"Front Office", "Archive"};
    std::string current = "Front Office";
    std::optional<std::string> chosen;
    /// A Letter printer of 300 by 300 with margins of a quarter inch.
    std::shared_ptr<PrinterScript> script = std::make_shared<PrinterScript>();
};

/// Gives every page the same picture and keeps what it is told.
class PrintClient : public pixmo::PrintClient {
public:
    Raster printedPage(int16_t page) override;
    void printStatus(const std::string& text, int32_t) override { statuses.push_back(text); }
    void printProgress(const std::string& record) override { log.push_back(record); }
    bool printGoesOn() override { return steps-- > 0; }

    Raster given;
    std::function<void(int16_t page)> onPage; ///< before a page is given
    int steps = 1000;                         ///< then the job is cancelled
    std::vector<std::string> statuses;
    std::vector<std::string> log;
};

} // namespace pixmo::scripted
