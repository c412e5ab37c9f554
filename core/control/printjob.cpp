#include "core/control/printjob.h"

#include "core/base/text.h"
#include "core/control/enumerations.h"
#include "core/diag/settings.h"
#include "core/printing/dlgpreview.h"
#include "core/printing/dlgprint.h"
#include "core/printing/pageprinter.h"
#include "core/printing/printpreview.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace pixmo {

namespace {

int16_t countOf(const std::vector<int16_t>& pages) {
    return static_cast<int16_t>(std::min<size_t>(pages.size(), std::numeric_limits<int16_t>::max()));
}

std::string joined(const std::vector<int16_t>& pages) {
    std::string text;
    for (const int16_t page : pages)
        text += (text.empty() ? "" : ",") + std::to_string(page);
    return text;
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

PrintJob::PrintJob(Diagnostics& diagnostics, Session& session, PrintPages& pages, Uses uses)
    : diagnostics_(diagnostics), session_(session), pages_(pages), uses_(uses) {}

PrintJob::~PrintJob() = default;

void PrintJob::forgetOutcome() {
    if (!state_.running)
        state_ = {};
}

bool PrintJob::isPossible() const {
    return uses_.printers && !state_.running && !asking_ && !diagnostics_.ended() &&
           session_.state().currentDocument != 0;
}

void PrintJob::imgPrintCurrentOnly() {
    diagnostics_.procedure("imgPrintCurrentOnly").step([this] {
        print({{session_.state().currentPage}, FitToPage, 1});
    });
}

void PrintJob::imgPrintPages() {
    if (!isPossible())
        return;
    pages_.begin();
    diagnostics_.procedure("imgPrintPages").step([this] {
        const Choice choice = askUser();
        if (pages_.isCurrent())
            print(choice);
    });
}

/// Without pages where the user wants none.
PrintJob::Choice PrintJob::askUser() {
    const Flag shown(asking_);
    printer_ = std::make_unique<cPrinter>(*uses_.printers);
    dlgPrint dialog(diagnostics_.errors, diagnostics_.messageBox, uses_.settings);
    fillDialog(dialog);
    const auto choice = [&dialog] {
        return Choice{dialog.PrintPages(), dialog.PrintScale(), dialog.Copies()};
    };
    dialog.PreviewRequested.connect([&] { showPreview(choice()); });
    uses_.dialogs.showModal(dialog);
    return dialog.Cancelled() ? Choice() : choice();
}

void PrintJob::fillDialog(dlgPrint& dialog) {
    dialog.setPageCount(std::max(session_.state().pageCount, session_.state().currentPage));
    dialog.setCurrPage(session_.state().currentPage);
    dialog.setAllPages(uses_.properties.DfPrintAllPages);
    dialog.setPrinterObject(printer_.get());
    dialog.Form_Load();
}

int32_t PrintJob::print(const Choice& choice) {
    if (!isPossible() || choice.pages.empty())
        return 0;
    begin(choice);
    state_ = {true, {}, -1};
    if (!printer_)
        printer_ = std::make_unique<cPrinter>(*uses_.printers);
    BeginPrintJob(choice);
    pages_.forgetView();
    state_.running = false;
    state_.percent = -1;
    if (!diagnostics_.ended())
        uses_.ui.UpdateUI();
    return pagesQueued_;
}

/// What print and preview have in common.
void PrintJob::begin(const Choice& choice) {
    pages_.begin();
    pagesQueued_ = 0;
    if (choice.scale == CurrentView)
        pages_.keepView(choice.pages.front());
}

void PrintJob::cancel() {
    if (state_.running)
        pages_.cancel();
}

void PrintJob::BeginPrintJob(const Choice& choice) {
    bool begun = false;
    const int32_t document = pages_.document();
    diagnostics_.procedure("BeginPrintJob")
        .step([&] {
            uses_.properties.PrintPageCount = static_cast<int32_t>(choice.pages.size());
            uses_.properties.PrintPageSelection = joined(choice.pages);
        })
        .step([&] { return CachePages(choice.pages); })
        .step([&] { return askHost(); })
        .step([&] {
            begun = true;
            DoPrintJob(requestOf(choice));
        });
    if (!begun || diagnostics_.ended())
        return;
    diagnostics_.procedure("BeginPrintJob").step([&] {
        const auto queued =
            static_cast<int16_t>(std::min<int32_t>(pagesQueued_, std::numeric_limits<int16_t>::max()));
        uses_.events.PrintJobFinish.raise(queued, std::to_string(document));
    });
}

Flow PrintJob::CachePages(const std::vector<int16_t>& pages) {
    bool all = true;
    diagnostics_.procedure("CachePages").step([&] {
        const auto tell = [&](size_t done) {
            printStatus(" Loading pages for print job...", static_cast<int32_t>(done * 100 / pages.size()));
        };
        printStatus(" Loading pages for print job...", -1);
        all = pages_.fetch(pages, tell);
    });
    if (diagnostics_.ended())
        return Flow::Leave;
    if (all && !pages_.isCancelled())
        return Flow::GoOn;
    if (pages_.isCancelled()) {
        printStatus("Print job cancelled.", -1);
    } else {
        diagnostics_.messageBox.ask("Some pages for the current print job failed to load." +
                                        std::string(LineBreak) + "The print job will be cancelled.",
                                    Buttons::Ok, Icon::Exclamation, "Print Job Cancelled");
        printStatus({}, -1);
    }
    return Flow::Leave;
}

/// Leaves where the host, asked by both events, does not want the job.
Flow PrintJob::askHost() {
    const std::string data = std::to_string(pages_.document());
    const std::string selection = uses_.properties.PrintPageSelection;
    const auto count = static_cast<int16_t>(
        std::min<int32_t>(uses_.properties.PrintPageCount, std::numeric_limits<int16_t>::max()));
    bool vetoed = false;
    uses_.events.PrintJobBegin.raise(count, data, vetoed);
    if (diagnostics_.ended())
        return Flow::Leave;
    vetoed = vetoed || uses_.properties.PrintCancelJob;
    uses_.events.PrintJobBeginEX.raise(count, selection, data, vetoed);
    if (diagnostics_.ended())
        return Flow::Leave;
    if (!vetoed && !uses_.properties.PrintCancelJob)
        return Flow::GoOn;
    printStatus({}, -1);
    return Flow::Leave;
}

PrintRequest PrintJob::requestOf(const Choice& choice) {
    const PropertyValues& properties = uses_.properties;
    PrintRequest request;
    request.documentName = "Document " + std::to_string(pages_.document());
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
    request.coverSheet = {properties.PrintUserName, uses_.clock.generalDate(), properties.MachineName,
                          properties.PrintItemDesc, properties.PrintFee};
    return request;
}

std::vector<std::string> PrintJob::pageNumbers(const std::vector<int16_t>& pages) const {
    const bool ofDocument = uses_.properties.PrintPageNumStyle == pnSourceDocPageNums;
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
    if (!equalIgnoringCase(uses_.settings.GetSetting(kept.section, kept.key, kept.defaultValue), "TRUE"))
        return Flow::GoOn;
    printer_->LoadDefaultPrinterDC();
    diagnostics_.messageBox.ask(printer_->GetCaps(), Buttons::Ok, Icon::Information, "Printer Debug Info");
    return pages_.isCurrent() ? Flow::GoOn : Flow::Leave;
}

void PrintJob::DoPrintJob(const PrintRequest& request) {
    diagnostics_.procedure("DoPrintJob")
        .step([&] { return showDebugInfo(); })
        .step([&] { pages_.saveView(); })
        .step([&] { printStatus("Preparing to print", 0); })
        .step([&] {
            if (request.copies <= 1)
                return Flow::GoOn;
            const Answer answer =
                diagnostics_.messageBox.ask("Are you sure you want multiple copies of this document?",
                                            Buttons::YesNo, Icon::Question, "Multiple Copies Specified");
            if (answer == Answer::Yes && pages_.isCurrent())
                return Flow::GoOn;
            printStatus({}, -1);
            return Flow::Leave;
        })
        .step([&] {
            const PrintResult result = PagePrinter(diagnostics_.errors, diagnostics_.messageBox, *printer_)
                                           .imgPrintDoc(request, *this);
            pagesQueued_ = result.pagesQueued;
            report(result);
        });
}

void PrintJob::report(const PrintResult& result) {
    if (diagnostics_.ended())
        return;
    if (!result.errors.empty()) {
        std::string text = "The following error(s) where reported while printing:";
        for (const std::string& error : result.errors)
            text += std::string(LineBreak) + error;
        printStatus({}, -1);
        diagnostics_.messageBox.ask(text, Buttons::Ok, Icon::Exclamation, {});
    } else if (result.completed) {
        printStatus(std::to_string(result.pagesQueued) + " pages queued successfully.", -1);
    } else {
        printStatus("Print job cancelled.", -1);
    }
}

void PrintJob::showPreview(const Choice& choice) {
    if (state_.running || !pages_.isCurrent())
        return;
    begin(choice);
    PrintPreview preview(diagnostics_.errors, diagnostics_.messageBox, *uses_.printers, *this,
                         requestOf(choice));
    preview.Closed.connect([this] { pages_.cancel(); });
    dlgPreview dialog(preview, uses_.timers);
    uses_.dialogs.showModal(dialog);
}

Raster PrintJob::printedPage(int16_t page) {
    Raster picture = pages_.picture(page);
    if (picture.empty())
        throw Error(error_number::InvalidPicture, "Error rendering image.");
    return picture;
}

void PrintJob::printStatus(const std::string& text, int32_t percent) {
    if (diagnostics_.ended())
        return;
    state_.text = text;
    state_.percent = percent;
    uses_.ui.UpdateUI();
}

bool PrintJob::printGoesOn() {
    pages_.handlePending();
    return pages_.goOn() && !uses_.properties.PrintCancelJob;
}

} // namespace pixmo
