#include "core/printing/printpreview.h"

#include <algorithm>
#include <utility>

namespace pixmo {

PrintPreview::PrintPreview(cErrObject& errors, MessageBox& messageBox, Printers& printers,
                           PrintClient& client, PrintRequest request)
    : errors_(errors), client_(client), request_(std::move(request)), metrics_(printers), canvas_(printers),
      pages_(errors, messageBox, canvas_) {
    errors_.attempt("cLeadImageFunctions.imgPrintDoc",
                    [&] { PagePrinter(errors, messageBox, metrics_).open(request_, client_); });
}

int32_t PrintPreview::sheetCount() const {
    return static_cast<int32_t>(request_.pages.size()) + (request_.hasCoverSheet ? 1 : 0);
}

int32_t PrintPreview::nearestSheet(int32_t sheet) const {
    return std::clamp(sheet, int32_t{0}, std::max(int32_t{0}, sheetCount() - 1));
}

std::string PrintPreview::sheetText(int32_t sheet) const {
    return "Sheet " + std::to_string(sheet + 1) + " of " + std::to_string(sheetCount());
}

int32_t PrintPreview::draw(int32_t sheet, std::unique_ptr<PrinterDevice> device) {
    const int32_t status =
        errors_.attempt("cLeadImageFunctions.imgQueuePage", [&] { drawSheet(sheet, std::move(device)); });
    canvas_.Delete_DC();
    return status;
}

// The page is there before anything is drawn: whoever waits for one is overtaken by who asks next.
void PrintPreview::drawSheet(int32_t sheet, std::unique_ptr<PrinterDevice> device) {
    const int32_t index = request_.hasCoverSheet ? sheet - 1 : sheet;
    const auto at = static_cast<size_t>(std::max(index, 0));
    const Raster picture = index < 0 ? Raster() : client_.printedPage(request_.pages.at(at));
    canvas_.openOn(std::move(device));
    if (index < 0)
        pages_.QueueCoverSheet(request_);
    else
        pages_.imgQueuePage(request_, at, picture);
}

} // namespace pixmo
