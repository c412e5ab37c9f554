#include "core/printing/dlgprint.h"

#include "core/base/text.h"
#include "core/diag/settings.h"

#include <algorithm>
#include <utility>

namespace pixmo {

namespace {

/// The system's dialog as a choice of printers only: pages and copies are chosen here.
constexpr int32_t PrinterSetupOnly = 0x40;

} // namespace

dlgPrint::dlgPrint(cErrObject& errors, MessageBox& messageBox, SettingsStore& settings)
    : scope_(std::make_shared<ProcedureScope>()), messageBox_(messageBox), settings_(settings) {
    scope_->sourcePrefix = "dlgPrint.";
    scope_->errorObject = &errors;
    scope_->messageBox = &messageBox;
    setFocus("cmdPrint");
}

void dlgPrint::setPageCount(int16_t count) {
    pageCount_ = count;
    InitPageList();
}

void dlgPrint::setPrinterObject(cPrinter* printer) {
    printer_ = printer;
    printerName_ = printer ? printer->DeviceName() : std::string();
}

void dlgPrint::InitPageList() {
    procedure("InitPageList").step([this] {
        pageList_.clear();
        for (int32_t page = 1; page <= pageCount_; ++page)
            pageList_.push_back("Page " + std::to_string(page));
        selected_.assign(pageList_.size() + 1, false);
    });
}

void dlgPrint::Form_Load() {
    procedure("Form_Load").step([this] {
        const setting::Setting& kept = setting::PrintShowMore;
        const std::string text = settings_.GetSetting(kept.section, kept.key, kept.defaultValue);
        try {
            moreShown_ = toBoolean(text);
        } catch (const Error&) {
            moreShown_ = false;
        }
        Changed.raise();
    });
}

void dlgPrint::ShowMore(bool show) {
    procedure("ShowMore").step([&] {
        moreShown_ = show;
        const setting::Setting& kept = setting::PrintShowMore;
        settings_.SaveSetting(kept.section, kept.key, show ? "True" : "False");
        Changed.raise();
    });
}

bool dlgPrint::confirm(const char* question) {
    return messageBox_.ask(question, Buttons::OkCancel, Icon::Question, Caption()) == Answer::Ok;
}

void dlgPrint::optPrintType_Click(int16_t index) {
    procedure("optPrintType_Click").step([&] {
        printType_ = index;
        if (index != CurrentPage && imageScale_ == CurrentView) {
            if (confirm("Selecting this page range will deselect the 'Print Current View Only' option."))
                imageScale_ = FitToPage;
            else
                printType_ = CurrentPage;
        }
        Changed.raise();
    });
}

void dlgPrint::optImageScale_Click(int16_t index) {
    procedure("optImageScale_Click").step([&] {
        const int16_t previous = std::exchange(imageScale_, index);
        if (index == CurrentView && printType_ != CurrentPage) {
            if (confirm("Selecting the 'Print Current View Only' option will automatically select the "
                        "'Current Page' range."))
                printType_ = CurrentPage;
            else
                imageScale_ = previous;
        }
        Changed.raise();
    });
}

bool dlgPrint::isPageSelected(int16_t page) const {
    return page >= 1 && page <= pageCount_ && selected_[static_cast<size_t>(page)];
}

void dlgPrint::lstSelectedPages_Click(int16_t page, bool selected) {
    if (page >= 1 && page <= pageCount_)
        selected_[static_cast<size_t>(page)] = selected;
}

void dlgPrint::txtFromPage_Change(const std::string& text) {
    fromPage_ = text;
    if (printType_ != PageRange)
        optPrintType_Click(PageRange);
}

void dlgPrint::txtToPage_Change(const std::string& text) {
    toPage_ = text;
    if (printType_ != PageRange)
        optPrintType_Click(PageRange);
}

// A text that is no number of copies stays as it is typed; the number of before counts.
void dlgPrint::txtPrntCopies_Change(const std::string& text) {
    procedure("txtPrntCopies_Change").step([&] {
        copiesText_ = text;
        const double value = leadingNumber(text);
        if (value >= 1 && value <= MostCopies)
            copies_ = static_cast<int32_t>(value);
        Changed.raise();
    });
}

void dlgPrint::hscPrntCopies_Change(int32_t copies) {
    procedure("hscPrntCopies_Change").step([&] {
        copies_ = std::clamp(copies, int32_t{1}, MostCopies);
        copiesText_ = std::to_string(copies_);
        Changed.raise();
    });
}

std::vector<int16_t> dlgPrint::pagesFromTo(int16_t first, int16_t last) {
    std::vector<int16_t> pages;
    for (int32_t page = first; page <= last; ++page)
        pages.push_back(static_cast<int16_t>(page));
    return pages;
}

int16_t dlgPrint::limited(const std::string& pageNumber) const {
    return static_cast<int16_t>(
        std::clamp<double>(toDouble(pageNumber), 1, std::max<int16_t>(pageCount_, 1)));
}

std::vector<int16_t> dlgPrint::pagesOfRange() const {
    const std::string from(trimBlanks(fromPage_));
    const std::string to(trimBlanks(toPage_));
    if (from.empty() || to.empty())
        return {};
    const auto [first, last] = std::minmax({limited(from), limited(to)});
    return pagesFromTo(first, last);
}

/// Empty where nothing valid is chosen.
std::vector<int16_t> dlgPrint::chosenPages() const {
    switch (printType_) {
    case AllPages:
        return pagesFromTo(1, pageCount_);
    case CurrentPage:
        return {currPage_};
    case PageRange:
        return pagesOfRange();
    default:
        break;
    }
    std::vector<int16_t> pages = pagesFromTo(1, pageCount_);
    std::erase_if(pages, [this](int16_t page) { return !isPageSelected(page); });
    return pages;
}

bool dlgPrint::takeChoices() {
    printPages_ = chosenPages();
    printScale_ = imageScale_;
    copiesText_ = std::to_string(copies_);
    return !printPages_.empty();
}

void dlgPrint::cmdPrint_Click() {
    procedure("cmdPrint_Click").step([this] {
        if (!takeChoices()) {
            cmdCancel_Click();
            return;
        }
        cancelled_ = false;
        close();
    });
}

void dlgPrint::cmdCancel_Click() {
    procedure("cmdCancel_Click").step([this] {
        cancelled_ = true;
        close();
    });
}

void dlgPrint::cmdSelectPrinter_Click() {
    procedure("cmdSelectPrinter_Click").step([this] {
        if (!printer_) {
            messageBox_.ask("WARNING: PrintDialog reference was not sent to dlgPrint!", Buttons::Ok,
                            Icon::Exclamation, Caption());
            return;
        }
        printer_->ShowPrinter(Parent_hWnd, PrinterSetupOnly);
        printerName_ = printer_->DeviceName();
        Changed.raise();
    });
}

void dlgPrint::cmdPreview_Click() {
    procedure("cmdPreview_Click").step([this] {
        if (takeChoices())
            PreviewRequested.raise();
    });
}

} // namespace pixmo
