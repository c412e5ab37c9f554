#pragma once

#include "core/diag/procedure.h"
#include "core/platform/dialog.h"
#include "core/platform/settingsstore.h"
#include "core/printing/cprinter.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace pixmo {

/// Index of the page range options.
enum PrintRange : int16_t { AllPages = 0, CurrentPage = 1, SelectedPages = 2, PageRange = 3 };
/// Index of the print size options.
enum PrintScale : int16_t { FitToPage = 0, FullSize = 1, CurrentView = 2 };

/// Asks what to print and how.
class dlgPrint : public Dialog {
public:
    static constexpr int32_t MostCopies = 999;

    /// All outlive the dialog.
    dlgPrint(cErrObject& errors, MessageBox& messageBox, SettingsStore& settings);

    DialogDescription describe() override;
    void cancel() override { cmdCancel_Click(); }

    static const char* Caption() { return "Print Document"; }

    // What the caller sets before it shows the dialog.
    intptr_t Parent_hWnd = 0;
    void setPageCount(int16_t count);
    int16_t PageCount() const { return pageCount_; }
    void setCurrPage(int16_t page) { currPage_ = page; }
    int16_t CurrPage() const { return currPage_; }
    /// nullptr: no printer can be chosen.
    void setPrinterObject(cPrinter* printer);
    /// All pages or the current one.
    void setAllPages(bool all) { printType_ = all ? AllPages : CurrentPage; }

    // What the caller reads when the dialog is closed.
    bool Cancelled() const { return cancelled_; }
    const std::string& PrinterName() const { return printerName_; }
    /// In printing order. Set before, they are the selected pages.
    const std::vector<int16_t>& PrintPages() const { return printPages_; }
    int16_t PrintScale() const { return printScale_; }
    void setPrintScale(int16_t scale) { imageScale_ = printScale_ = scale; }
    int32_t Copies() const { return copies_; }
    void setCopies(int32_t copies) { hscPrntCopies_Change(copies); }

    // The controls as they stand.
    int16_t optPrintType() const { return printType_; }
    int16_t optImageScale() const { return imageScale_; }
    /// One entry a page, "Page 3".
    const std::vector<std::string>& lstSelectedPages() const { return pageList_; }
    bool isPageSelected(int16_t page) const;
    bool isPageListVisible() const { return printType_ == SelectedPages; }
    const std::string& txtFromPage() const { return fromPage_; }
    const std::string& txtToPage() const { return toPage_; }
    const std::string& txtPrntCopies() const { return copiesText_; }
    int32_t hscPrntCopies() const { return copies_; }
    const std::string& lblPrinterName() const { return printerName_; }
    bool isMoreShown() const { return moreShown_; }
    /// Names what a click will do.
    const char* cmdOptionsCaption() const { return moreShown_ ? "Less Options" : "More Options"; }

    /// Before the window is shown.
    void Form_Load();
    void InitPageList();
    void ShowMore(bool show);
    void optPrintType_Click(int16_t index);
    void optImageScale_Click(int16_t index);
    void lstSelectedPages_Click(int16_t page, bool selected);
    /// Who types a page means the range.
    void txtFromPage_Change(const std::string& text);
    void txtToPage_Change(const std::string& text);
    void txtPrntCopies_Change(const std::string& text);
    void hscPrntCopies_Change(int32_t copies);
    void cmdPrint_Click();
    void cmdCancel_Click();
    void cmdSelectPrinter_Click();
    void cmdOptions_Click() { ShowMore(!moreShown_); }
    void cmdPreview_Click();

    /// With the choices as they stand, in PrintPages and PrintScale.
    Event<> PreviewRequested;

private:
    Procedure procedure(const char* name) const { return {scope_, name, Buttons::RetryCancel}; }
    DialogPart printer();
    DialogPart buttons();
    DialogPart range();
    DialogPart pages();
    DialogPart sizes();
    DialogPart copies();
    DialogPart rangeOption(int16_t range, const char* text);
    DialogPart sizeOption(int16_t scale, const char* text);
    std::vector<int16_t> chosenPages() const;
    std::vector<int16_t> pagesOfRange() const;
    static std::vector<int16_t> pagesFromTo(int16_t first, int16_t last);
    int16_t limited(const std::string& pageNumber) const;
    bool takeChoices();
    bool confirm(const char* question);

    std::shared_ptr<ProcedureScope> scope_;
    MessageBox& messageBox_;
    SettingsStore& settings_;
    cPrinter* printer_ = nullptr;
    int16_t pageCount_ = 0;
    int16_t currPage_ = 0;
    int16_t printType_ = CurrentPage;
    int16_t imageScale_ = FitToPage;
    std::vector<std::string> pageList_;
    std::vector<bool> selected_; ///< by page, index 0 unused
    std::string fromPage_;
    std::string toPage_;
    std::string copiesText_ = "1";
    int32_t copies_ = 1;
    bool moreShown_ = false;
    bool cancelled_ = true;
    std::string printerName_;
    std::vector<int16_t> printPages_;
    int16_t printScale_ = FitToPage;
};

} // namespace pixmo
