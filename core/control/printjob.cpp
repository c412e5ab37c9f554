#include "core/control/printjob.h"

#include "core/base/text.h"
#include "core/diag/settings.h"
#include "core/printing/dlgpreview.h"
#include "core/printing/dlgprint.h"
#include "core/printing/pageprinter.h"
#include "core/printing/printpreview.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace pixmo {

namespace {

/// How many pages are fetched at the same time.
constexpr size_t PagesAhead = 4;

int16_t countOf(const std::vector<int16_t>& pages) {
    return static_cast<int16_t>(std::min<size_t>(pages.size(), std::numeric_limits<int16_t>::max()));
}

std::string joined(const std::vector<int16_t>& pages) {
    std::string text;
    for (const int16_t page : pages)
        text += (text.empty() ? "" : ",") + std::to_string(page);
    return text;
}

/// The whole pixels that a part of a picture touches.
Rectangle outward(const RealRectangle& part) {
    const auto left = static_cast<int32_t>(std::floor(part.left));
    const auto top = static_cast<int32_t>(std::floor(part.top));
    return {left, top, static_cast<int32_t>(std::ceil(part.left + part.width)) - left,
            static_cast<int32_t>(std::ceil(part.top + part.height)) - top};
}

/// True while it lives.
class Flag {
public:
    explicit Flag(bool& flag) : flag_(flag) { flag_ = true; }
    ~Flag() { flag_ = false; }
    Flag(const Flag&) = delete;
    Flag& operator=(const Flag&) = delete;

private:
    bool& flag_;
};

} // namespace

PrintJob::PrintJob(ControlParts& parts, Session& session, Commands& commands)
    : parts_(parts), session_(session) {
    commands.canPrint = parts_.ports.printers != nullptr;
}

PrintJob::~PrintJob() = default;

void PrintJob::forgetOutcome() {
    if (!state_.running)
        state_ = {};
}

bool PrintJob::isPossible() const {
    return parts_.ports.printers && !state_.running && !asking_ && !parts_.ended() &&
           session_.state().currentDocument != 0;
}

/// The job's document is still the control's.
bool PrintJob::isCurrent() const {
    return !parts_.ended() && session_.state().currentDocument == document_;
}

void PrintJob::imgPrintCurrentOnly() {
    parts_.procedure("imgPrintCurrentOnly").step([this] {
        print({{session_.state().currentPage}, FitToPage, 1});
    });
}

void PrintJob::imgPrintPages() {
    if (!isPossible())
        return;
    document_ = session_.state().currentDocument;
    parts_.procedure("imgPrintPages").step([this] {
        const Choice choice = askUser();
        if (isCurrent())
            print(choice);
    });
}

/// Without pages where the user wants none.
PrintJob::Choice PrintJob::askUser() {
    const Flag shown(asking_);
    printer_ = std::make_unique<cPrinter>(*parts_.ports.printers);
    dlgPrint dialog(parts_.errors, *parts_.ports.messageBox, *parts_.ports.settings);
    fillDialog(dialog);
    const auto choice = [&dialog] {
        return Choice{dialog.PrintPages(), dialog.PrintScale(), dialog.Copies()};
    };
    dialog.PreviewRequested.connect([&] { showPreview(choice()); });
    const auto dialogs = parts_.ports.dialogs;
    dialogs->showModal(dialog);
    return dialog.Cancelled() ? Choice() : choice();
}

void PrintJob::fillDialog(dlgPrint& dialog) {
    dialog.setPageCount(std::max(session_.state().pageCount, session_.state().currentPage));
    dialog.setCurrPage(session_.state().currentPage);
    dialog.setAllPages(parts_.properties.DfPrintAllPages);
    dialog.setPrinterObject(printer_.get());
    dialog.Form_Load();
}

int32_t PrintJob::print(const Choice& choice) {
    if (!isPossible() || choice.pages.empty())
        return 0;
    begin(choice);
    state_ = {true, {}, -1};
    if (!printer_)
        printer_ = std::make_unique<cPrinter>(*parts_.ports.printers);
    BeginPrintJob(choice);
    view_.reset();
    state_.running = false;
    state_.percent = -1;
    if (!parts_.ended())
        parts_.updateUI();
    return pagesQueued_;
}

/// What print and preview have in common.
void PrintJob::begin(const Choice& choice) {
    document_ = session_.state().currentDocument;
    cancelled_ = false;
    pagesQueued_ = 0;
    view_.reset();
    if (choice.scale == CurrentView)
        view_ = currentView(choice);
}

Raster PrintJob::currentView(const Choice& choice) const {
    const bool isShown = session_.isPageDisplayed() && choice.pages.front() == session_.state().currentPage;
    return isShown ? partOf(parts_.lvrImage.raster(), outward(parts_.lvrImage.rectangles().sourceClip))
                   : Raster();
}

void PrintJob::cancel() {
    if (state_.running)
        cancelled_ = true;
}

void PrintJob::BeginPrintJob(const Choice& choice) {
    bool begun = false;
    const int32_t document = document_;
    parts_.procedure("BeginPrintJob")
        .step([&] {
            parts_.properties.PrintPageCount = static_cast<int32_t>(choice.pages.size());
            parts_.properties.PrintPageSelection = joined(choice.pages);
        })
        .step([&] { return CachePages(choice.pages); })
        .step([&] { return askHost(); })
        .step([&] {
            begun = true;
            DoPrintJob(requestOf(choice));
        });
    if (!begun || parts_.ended())
        return;
    parts_.procedure("BeginPrintJob").step([&] {
        const auto queued =
            static_cast<int16_t>(std::min<int32_t>(pagesQueued_, std::numeric_limits<int16_t>::max()));
        parts_.events.PrintJobFinish.raise(queued, std::to_string(document));
    });
}

Flow PrintJob::CachePages(const std::vector<int16_t>& pages) {
    bool all = true;
    parts_.procedure("CachePages").step([&] {
        printStatus(" Loading pages for print job...", -1);
        for (size_t index = 0; index < pages.size() && all; ++index) {
            fetchAhead(pages, index);
            all = awaitPage(pages[index]);
            printStatus(" Loading pages for print job...",
                        static_cast<int32_t>((index + 1) * 100 / pages.size()));
        }
        session_.forgetPrintPages();
    });
    if (parts_.ended())
        return Flow::Leave;
    if (all && !cancelled_)
        return Flow::GoOn;
    if (cancelled_)
        printStatus("Print job cancelled.", -1);
    else
        parts_.ports.messageBox->ask("Some pages for the current print job failed to load." +
                                         std::string(LineBreak) + "The print job will be cancelled.",
                                     Buttons::Ok, Icon::Exclamation, "Print Job Cancelled");
    if (!cancelled_)
        printStatus({}, -1);
    return Flow::Leave;
}

void PrintJob::fetchAhead(const std::vector<int16_t>& pages, size_t first) {
    const size_t end = std::min(pages.size(), first + PagesAhead);
    for (size_t index = first; index < end && isCurrent() && !cancelled_; ++index)
        if (!session_.IsPageCached(pages[index]))
            session_.FetchPageForPrinting(pages[index]);
}

bool PrintJob::isPageAwaited(int16_t page) const {
    return isCurrent() && !cancelled_ && !session_.IsPageCached(page) && session_.isPagePending(page);
}

bool PrintJob::awaitPage(int16_t page) {
    parts_.ports.eventLoop->pumpUntil([&] { return !isPageAwaited(page); });
    return isCurrent() && !cancelled_ && session_.IsPageCached(page);
}

/// Leaves where the host, asked by both events, does not want the job.
Flow PrintJob::askHost() {
    const std::string data = std::to_string(document_);
    const std::string selection = parts_.properties.PrintPageSelection;
    const auto count = static_cast<int16_t>(
        std::min<int32_t>(parts_.properties.PrintPageCount, std::numeric_limits<int16_t>::max()));
    bool vetoed = false;
    parts_.events.PrintJobBegin.raise(count, data, vetoed);
    if (parts_.ended())
        return Flow::Leave;
    vetoed = vetoed || parts_.properties.PrintCancelJob;
    parts_.events.PrintJobBeginEX.raise(count, selection, data, vetoed);
    if (parts_.ended())
        return Flow::Leave;
    if (!vetoed && !parts_.properties.PrintCancelJob)
        return Flow::GoOn;
    printStatus({}, -1);
    return Flow::Leave;
}

PrintRequest PrintJob::requestOf(const Choice& choice) {
    const PropertyValues& properties = parts_.properties;
    PrintRequest request;
    request.documentName = "Document " + std::to_string(document_);
    request.pages = choice.pages;
    if (properties.PrintPageNums)
        request.pageNumbers = pageNumbers(choice.pages);
    request.scale = choice.scale;
    request.copies = choice.copies;
    request.mayCrop = choice.mayCrop;
    request.paperSize = properties.DfPrintPaperSize;
    request.caption = properties.PrintCaption;
    if (!properties.PrintImageDesc.empty())
        request.caption += (request.caption.empty() ? "" : " - ") + properties.PrintImageDesc;
    request.captionFontSize = properties.PrintCapFontSize;
    request.hasCoverSheet = properties.PrintCoverSheet;
    request.coverSheet = {properties.PrintUserName, parts_.ports.clock->generalDate(), properties.MachineName,
                          properties.PrintItemDesc, properties.PrintFee};
    return request;
}

std::vector<std::string> PrintJob::pageNumbers(const std::vector<int16_t>& pages) const {
    const bool ofDocument = parts_.properties.PrintPageNumStyle == pnSourceDocPageNums;
    const auto total = static_cast<size_t>(ofDocument ? session_.state().pageCount : countOf(pages));
    std::vector<std::string> texts;
    for (size_t index = 0; index < pages.size(); ++index) {
        const size_t number = ofDocument ? static_cast<size_t>(pages[index]) : index + 1;
        texts.push_back("Page " + std::to_string(number) + " of " + std::to_string(total));
    }
    return texts;
}

Flow PrintJob::showDebugInfo() {
    const setting::Setting& kept = setting::ShowPrintDebugInfo;
    if (!equalIgnoringCase(parts_.ports.settings->GetSetting(kept.section, kept.key, kept.defaultValue),
                           "TRUE"))
        return Flow::GoOn;
    printer_->LoadDefaultPrinterDC();
    parts_.ports.messageBox->ask(printer_->GetCaps(), Buttons::Ok, Icon::Information, "Printer Debug Info");
    return isCurrent() ? Flow::GoOn : Flow::Leave;
}

void PrintJob::DoPrintJob(const PrintRequest& request) {
    parts_.procedure("DoPrintJob")
        .step([&] { return showDebugInfo(); })
        .step([&] { parts_.leadImageHelp.SaveCurrentView("SavedView"); })
        .step([&] { printStatus("Preparing to print", 0); })
        .step([&] {
            if (request.copies <= 1)
                return Flow::GoOn;
            const Answer answer =
                parts_.ports.messageBox->ask("Are you sure you want multiple copies of this document?",
                                             Buttons::YesNo, Icon::Question, "Multiple Copies Specified");
            if (answer == Answer::Yes && isCurrent())
                return Flow::GoOn;
            printStatus({}, -1);
            return Flow::Leave;
        })
        .step([&] {
            const PrintResult result =
                PagePrinter(parts_.errors, *parts_.ports.messageBox, *printer_).imgPrintDoc(request, *this);
            pagesQueued_ = result.pagesQueued;
            report(result);
        });
}

void PrintJob::report(const PrintResult& result) {
    if (parts_.ended())
        return;
    if (!result.errors.empty()) {
        std::string text = "The following error(s) where reported while printing:";
        for (const std::string& error : result.errors)
            text += std::string(LineBreak) + error;
        printStatus({}, -1);
        parts_.ports.messageBox->ask(text, Buttons::Ok, Icon::Exclamation, {});
    } else if (result.completed) {
        printStatus(std::to_string(result.pagesQueued) + " pages queued successfully.", -1);
    } else {
        printStatus("Print job cancelled.", -1);
    }
}

void PrintJob::showPreview(const Choice& choice) {
    if (state_.running || !isCurrent())
        return;
    begin(choice);
    PrintPreview preview(parts_.errors, *parts_.ports.messageBox, *parts_.ports.printers, *this,
                         requestOf(choice));
    preview.Closed.connect([this] { cancelled_ = true; });
    const auto dialogs = parts_.ports.dialogs;
    dlgPreview dialog(preview, *parts_.ports.timers);
    dialogs->showModal(dialog);
}

Raster PrintJob::printedPage(int16_t page) {
    Raster picture = view_ ? *view_ : loadPage(page);
    if (picture.empty())
        throw Error(error_number::InvalidPicture, "Error rendering image.");
    return picture;
}

/// Empty where that fails.
Raster PrintJob::loadPage(int16_t page) {
    if (!session_.IsPageCached(page) && isCurrent()) {
        session_.FetchPageForPrinting(page);
        awaitPage(page);
    }
    cLeadImageFunctions::Bytes bytes;
    Raster picture;
    const bool loaded = isCurrent() && session_.IsPageCached(page) &&
                        parts_.leadImageHelp.imgDecryptToArray(session_.state().pages.file(page), bytes,
                                                               parts_.properties.EncBytes) == 0 &&
                        parts_.leadImageHelp.LoadArrayToRaster(bytes, picture) == 0;
    return loaded ? std::move(picture) : Raster();
}

void PrintJob::printStatus(const std::string& text, int32_t percent) {
    if (parts_.ended())
        return;
    state_.text = text;
    state_.percent = percent;
    parts_.updateUI();
}

bool PrintJob::printGoesOn() {
    const auto loop = parts_.ports.eventLoop;
    loop->handlePending();
    return isCurrent() && !cancelled_ && !parts_.properties.PrintCancelJob;
}

} // namespace pixmo
