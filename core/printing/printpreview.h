#pragma once

#include "core/base/event.h"
#include "core/printing/pageprinter.h"

#include <cstdint>
#include <memory>
#include <string>

namespace pixmo {

/// The sheets of a job as the printer would make them, one by one on another device: drawn by what prints
/// them, with the metrics of the printer. A face shows one sheet at a time.
class PrintPreview {
public:
    /// All outlive this object; the client is asked for a page whenever its sheet is drawn.
    PrintPreview(cErrObject& errors, MessageBox& messageBox, Printers& printers, PrintClient& client,
                 PrintRequest request);

    static const char* Caption() { return "Print Preview"; }
    int32_t sheetCount() const;
    /// The number of a sheet that there is, 0 being the first.
    int32_t nearestSheet(int32_t sheet) const;
    /// "Sheet 2 of 5"
    std::string sheetText(int32_t sheet) const;
    /// The printer that the job would go to, open; nullptr when it cannot be opened.
    const PrinterDevice* printer() const { return metrics_.device(); }
    /// Draws the sheet (0 is the first) on a device of the printer's metrics. 0, or the number of the error.
    /// Other events may be handled meanwhile, another call of this among them.
    int32_t draw(int32_t sheet, std::unique_ptr<PrinterDevice> device);
    /// The window is gone: who still waits for a page gives up.
    void close() { Closed.raise(); }

    Event<> Closed;

private:
    void drawSheet(int32_t sheet, std::unique_ptr<PrinterDevice> device);

    cErrObject& errors_;
    PrintClient& client_;
    PrintRequest request_;
    cPrinter metrics_;
    cPrinter canvas_;
    PagePrinter pages_;
};

} // namespace pixmo
