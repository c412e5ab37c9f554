#pragma once

#include "core/diag/cerrobject.h"
#include "core/platform/messagebox.h"
#include "core/printing/cprinter.h"
#include "core/printing/pagelayout.h"
#include "core/printing/printclient.h"
#include "core/printing/printrequest.h"

#include <cstdint>
#include <string>

namespace pixmo {

/// Draws a job's sheets, one after the other, through its printer. Sources of its errors begin with
/// "cLeadImageFunctions.".
class PagePrinter {
public:
    /// All outlive this object.
    PagePrinter(cErrObject& errors, MessageBox& messageBox, cPrinter& printerObject)
        : errors_(errors), messageBox_(messageBox), printer_(printerObject) {}

    /// The whole job. Nothing is thrown: what failed is told by the result.
    PrintResult imgPrintDoc(const PrintRequest& request, PrintClient& client);

    /// The printer opened with the paper of the job. Throws 482 when it cannot be.
    void open(const PrintRequest& request, PrintClient& client);
    /// Whether to go on: asks where full-size pages are larger than the paper's printable area.
    bool TruncateWarning(const PrintRequest& request, PrintClient& client);
    /// What stands on one sheet; the page has been started. Throws.
    void QueueCoverSheet(const PrintRequest& request);
    /// `index` into the request's pages.
    void imgQueuePage(const PrintRequest& request, size_t index, const Raster& picture);

private:
    enum class Edge : uint8_t { Top, Bottom };

    void printDocument(const PrintRequest& request, PrintClient& client, PrintResult& result);
    void printSheets(const PrintRequest& request, int32_t copies, PrintClient& client, PrintResult& result);
    void printCoverSheet(const PrintRequest& request, PrintClient& client, PrintResult& result);
    bool printPage(const PrintRequest& request, size_t index, PrintClient& client, PrintResult& result);
    template <typename Drawing>
    void onSheet(const Drawing& drawing);
    void WriteAnnotation(const std::string& text, int16_t fontSize, Edge edge);
    void drawPicture(const PrintRequest& request, const Raster& picture);
    PicturePlace placeOf(const PrintRequest& request, const Raster& picture);
    SheetArea pictureArea(const PrintRequest& request);
    void check(bool done, const char* source) const;
    int32_t lineHeight(int16_t fontSize);
    int32_t widthOf(const std::string& text) const;
    std::string lineOf(const std::string& anyText, int32_t width) const;
    void writeItem(const std::string& text, const std::string& amount, const Rectangle& row);

    cErrObject& errors_;
    MessageBox& messageBox_;
    cPrinter& printer_;
};

} // namespace pixmo
