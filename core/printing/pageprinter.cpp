#include "core/printing/pageprinter.h"

#include "core/base/text.h"
#include "core/imaging/rotation.h"
#include "core/printing/dlgprint.h"

#include <algorithm>
#include <array>
#include <optional>

namespace pixmo {

namespace {

constexpr int32_t PrinterErrorNumber = 482;
constexpr const char* FaceName = "Times New Roman";
constexpr int32_t NormalWeight = 400;
constexpr int32_t BoldWeight = 700;
constexpr int16_t SmallestFont = 1;
constexpr int16_t LargestFont = 144;
constexpr int16_t CoverFontSize = 12;
constexpr const char* Ellipsis = "...";
constexpr const char* Leader = "..................";

std::string firstCharacters(const std::string& text, size_t count) {
    size_t at = 0;
    while (count-- > 0 && at < text.size())
        nextCharacter(text, at);
    return text.substr(0, at);
}

int16_t usableFontSize(int16_t size) {
    return std::clamp(size, SmallestFont, LargestFont);
}

/// Line breaks and other characters that no printer shows become blanks.
std::string onOneLine(std::string text) {
    std::replace_if(
        text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < ' '; }, ' ');
    return text;
}

} // namespace

PrintResult PagePrinter::imgPrintDoc(const PrintRequest& request, PrintClient& client) {
    PrintResult result;
    const int32_t status =
        errors_.attempt("cLeadImageFunctions.imgPrintDoc", [&] { printDocument(request, client, result); });
    if (status != 0) {
        result.errors.push_back(errors_.Description());
        printer_.Abort_Doc();
    }
    if (!result.completed)
        result.pagesQueued = 0;
    printer_.Delete_DC();
    return result;
}

void PagePrinter::check(bool done, const char* source) const {
    if (done)
        return;
    const std::string reason = printer_.problem();
    throw Error(PrinterErrorNumber, reason.empty() ? "Printer error" : "Printer error: " + reason, source);
}

void PagePrinter::open(const PrintRequest& request, PrintClient& client) {
    printer_.LoadDefaultPrinterDC();
    check(printer_.device() && printer_.Horz_Res() > 0 && printer_.Vert_Res() > 0,
          "cLeadImageFunctions.imgPrintDoc");
    if (request.paperSize != 0 && !printer_.device()->setPaperSize(request.paperSize))
        client.printProgress("The printer '" + printer_.DeviceName() + "' has no paper of size " +
                             std::to_string(request.paperSize) + " and keeps its own.");
}

void PagePrinter::printDocument(const PrintRequest& request, PrintClient& client, PrintResult& result) {
    open(request, client);
    if (!TruncateWarning(request, client) || !client.printGoesOn())
        return;
    // A device repeats the whole job, but a job has one cover sheet.
    const bool deviceCopies =
        request.copies > 1 && !request.hasCoverSheet && printer_.device()->setCopies(request.copies);
    const int32_t job = printer_.Start_Doc(request.documentName);
    if (job == spool::UserAbort)
        return;
    check(job > 0, "cLeadImageFunctions.imgPrintDoc");
    // What the device does not repeat it gets as often as it is wanted.
    printSheets(request, deviceCopies ? 1 : request.copies, client, result);
    if (!result.completed) {
        printer_.Abort_Doc();
        return;
    }
    result.completed = false;
    check(printer_.End_Doc() > 0, "cLeadImageFunctions.imgPrintDoc");
    result.completed = true;
    client.printStatus("Finished printing.", 100);
}

void PagePrinter::printSheets(const PrintRequest& request, int32_t copies, PrintClient& client,
                              PrintResult& result) {
    if (request.hasCoverSheet)
        printCoverSheet(request, client, result);
    const size_t count = request.pages.size();
    const size_t sheets = count * static_cast<size_t>(copies);
    size_t done = 0;
    for (int32_t copy = 1; copy <= copies; ++copy)
        for (size_t index = 0; index < count; ++index) {
            if (!client.printGoesOn())
                return;
            client.printStatus("Printing page " + std::to_string(index + 1) + " of " + std::to_string(count),
                               static_cast<int32_t>(done++ * 100 / sheets));
            if (printPage(request, index, client, result) && copy == copies)
                ++result.pagesQueued;
        }
    result.completed = true;
}

// A sheet that was begun is ended, whatever became of what should stand on it.
template <typename Drawing>
void PagePrinter::onSheet(const Drawing& drawing) {
    check(printer_.Start_Page() > 0, "cLeadImageFunctions.imgPrintDoc");
    drawing();
    check(printer_.End_Page() > 0, "cLeadImageFunctions.imgPrintDoc");
}

void PagePrinter::printCoverSheet(const PrintRequest& request, PrintClient& client, PrintResult& result) {
    client.printStatus("Printing cover sheet.", 0);
    onSheet([&] {
        const int32_t status =
            errors_.attempt("cLeadImageFunctions.QueueCoverSheet", [&] { QueueCoverSheet(request); });
        if (status != 0)
            result.errors.push_back("Cover sheet: " + errors_.Description());
    });
}

/// Whether the page is on its sheet.
bool PagePrinter::printPage(const PrintRequest& request, size_t index, PrintClient& client,
                            PrintResult& result) {
    const std::string number = std::to_string(request.pages[index]);
    Raster picture;
    int32_t status = errors_.attempt("cLeadImageFunctions.imgQueuePage",
                                     [&] { picture = client.printedPage(request.pages[index]); });
    if (status == 0)
        onSheet([&] {
            status = errors_.attempt("cLeadImageFunctions.imgQueuePage",
                                     [&] { imgQueuePage(request, index, picture); });
        });
    if (status != 0) {
        result.errors.push_back("Page " + number + ": " + errors_.Description());
        return false;
    }
    client.printProgress("Printed page: " + number);
    return true;
}

bool PagePrinter::TruncateWarning(const PrintRequest& request, PrintClient& client) {
    if (request.scale != FullSize || request.mayCrop)
        return true;
    for (const int16_t page : request.pages) {
        bool cropped = false;
        // A page that cannot be loaded is reported when its turn comes.
        const int32_t status = errors_.attempt("cLeadImageFunctions.TruncateWarning", [&] {
            cropped = placeOf(request, client.printedPage(page)).cropped;
        });
        if (status == 0 && cropped)
            return messageBox_.ask("WARNING: Some pages must be cropped to fit the current printer's paper.  "
                                   "Continue anyway?",
                                   Buttons::YesNo, Icon::Exclamation, {}) == Answer::Yes;
        if (!client.printGoesOn())
            return false;
    }
    return true;
}

void PagePrinter::imgQueuePage(const PrintRequest& request, size_t index, const Raster& picture) {
    drawPicture(request, picture);
    if (!request.caption.empty())
        WriteAnnotation(request.caption, request.captionFontSize, Edge::Top);
    if (index < request.pageNumbers.size())
        WriteAnnotation(request.pageNumbers[index], request.captionFontSize, Edge::Bottom);
}

PicturePlace PagePrinter::placeOf(const PrintRequest& request, const Raster& picture) {
    const SheetArea sheet = pictureArea(request);
    switch (request.scale) {
    case FitToPage:
        return placeFitted(picture, sheet, true);
    case FullSize:
        return placeFullSize(picture, sheet);
    case CurrentView:
        return placeFitted(picture, sheet, false);
    default:
        break;
    }
    throw Error(error_number::InvalidArgument, "Unknown scale factor '" + std::to_string(request.scale) + "'",
                "cLeadImageFunctions.imgQueuePage");
}

void PagePrinter::drawPicture(const PrintRequest& request, const Raster& picture) {
    const PicturePlace place = placeOf(request, picture);
    std::optional<Raster> turned;
    if (place.turned)
        turned = rotated(picture, Turn::Right);
    if (!printer_.device()->drawRaster(turned ? *turned : picture, place.source, place.destination))
        throw Error(error_number::InvalidPicture, "Error rendering image.",
                    "cLeadImageFunctions.imgQueuePage");
}

/// Between caption and page number.
SheetArea PagePrinter::pictureArea(const PrintRequest& request) {
    const int32_t line = lineHeight(request.captionFontSize);
    const int32_t above = request.caption.empty() ? 0 : line;
    const int32_t below = request.pageNumbers.empty() ? 0 : line;
    return {{0, above, printer_.Horz_Res(), std::max(1, printer_.Vert_Res() - above - below)},
            static_cast<double>(printer_.LogPixels_X()),
            static_cast<double>(printer_.LogPixels_Y())};
}

/// The height that a line of the annotation takes, with the gap that keeps the picture off.
int32_t PagePrinter::lineHeight(int16_t fontSize) {
    printer_.SetFont(usableFontSize(fontSize), FaceName, NormalWeight, 0);
    int32_t width = 0;
    int32_t height = 0;
    printer_.GetTextExtentPoint_32("Page", width, height);
    return height + height / 2;
}

int32_t PagePrinter::widthOf(const std::string& text) const {
    int32_t width = 0;
    int32_t height = 0;
    printer_.GetTextExtentPoint_32(text, width, height);
    return width;
}

/// What of the text fits into the width.
std::string PagePrinter::lineOf(const std::string& anyText, int32_t width) const {
    std::string text = onOneLine(anyText);
    if (widthOf(text) <= width)
        return text;
    size_t fits = 0;
    size_t tooMany = characterCount(text);
    while (fits + 1 < tooMany) {
        const size_t middle = (fits + tooMany) / 2;
        (widthOf(firstCharacters(text, middle) + Ellipsis) <= width ? fits : tooMany) = middle;
    }
    return firstCharacters(text, fits) + Ellipsis;
}

void PagePrinter::WriteAnnotation(const std::string& text, int16_t fontSize, Edge edge) {
    const int32_t status = errors_.attempt("cLeadImageFunctions.WriteAnnotation", [&] {
        printer_.SetFont(usableFontSize(fontSize), FaceName, NormalWeight, 0);
        const std::string shown = lineOf(text, printer_.Horz_Res());
        int32_t width = 0;
        int32_t height = 0;
        printer_.GetTextExtentPoint_32(shown, width, height);
        const int32_t left = std::max(0, (printer_.Horz_Res() - width) / 2);
        const bool written =
            printer_.Text_Out(shown, left, edge == Edge::Top ? 0 : printer_.Vert_Res() - height);
        printer_.DeleteFont();
        check(written, "cLeadImageFunctions.WriteAnnotation");
    });
    if (status != 0)
        throw Error(errors_.Number(), errors_.Description(), errors_.Source());
}

void PagePrinter::QueueCoverSheet(const PrintRequest& request) {
    const CoverSheet& sheet = request.coverSheet;
    const std::string pages = std::to_string(request.pages.size());
    const std::array<std::string, 4> rows = {"Print Job Report for User: " + sheet.userName,
                                             "Date: " + sheet.date, "Printed from: " + sheet.workstation,
                                             "PagesPrinted: " + pages};
    const int32_t margin = printer_.LogPixels_X() / 2;
    Rectangle row = {margin, printer_.LogPixels_Y() / 2, std::max(1, printer_.Horz_Res() - 2 * margin), 0};
    bool heading = true;
    for (const std::string& text : rows) {
        printer_.SetFont(CoverFontSize, FaceName, heading ? BoldWeight : NormalWeight, 0);
        const Size size = printer_.device()->GetTextExtentPoint32(text);
        check(printer_.Text_Out(lineOf(text, row.width), row.left, row.top),
              "cLeadImageFunctions.QueueCoverSheet");
        row.height = size.height;
        row.top += heading ? 2 * size.height : size.height + size.height / 2;
        heading = false;
    }
    row.top += row.height;
    writeItem(sheet.itemDescription, pages, row);
    row.top += row.height + row.height / 2;
    writeItem("Fee", sheet.fee, row);
    printer_.DeleteFont();
}

/// The text at the left, the amount at the right, dots between them.
void PagePrinter::writeItem(const std::string& text, const std::string& amount, const Rectangle& row) {
    const int32_t leaderWidth = widthOf(Leader);
    const std::string shownAmount = lineOf(amount, std::max(1, (row.width - leaderWidth) / 2));
    const int32_t amountWidth = widthOf(shownAmount);
    const std::string shownText = lineOf(text, std::max(1, row.width - leaderWidth - amountWidth));
    const int32_t room = row.width - amountWidth - widthOf(shownText);
    std::string dots = Leader;
    while (widthOf(dots + '.') <= room)
        dots += '.';
    const int32_t right = row.right() - amountWidth;
    check(printer_.Text_Out(shownText, row.left, row.top) &&
              printer_.Text_Out(dots, right - widthOf(dots), row.top) &&
              printer_.Text_Out(shownAmount, right, row.top),
          "cLeadImageFunctions.QueueCoverSheet");
}

} // namespace pixmo
