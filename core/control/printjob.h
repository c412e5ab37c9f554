#pragma once

#include "core/control/commands.h"
#include "core/control/controlparts.h"
#include "core/control/session.h"
#include "core/printing/cprinter.h"
#include "core/printing/printclient.h"
#include "core/printing/printrequest.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace pixmo {

class dlgPrint;

/// What a print job says of itself; the text stays when the job is over.
struct PrintingState {
    bool running = false;
    std::string text;
    int32_t percent = -1; ///< 0 to 100, or -1
};

/// The control's side of printing: what is printed, whether the host lets it, and the pages for it. One job
/// at a time; a second one that is asked for while one runs, or while the user is asked, is ignored.
class PrintJob : private PrintClient {
public:
    PrintJob(ControlParts& parts, Session& session, Commands& commands);
    ~PrintJob() override;
    PrintJob(const PrintJob&) = delete;
    PrintJob& operator=(const PrintJob&) = delete;

    /// What can be told of a job from outside; the rest is told by the control's properties.
    struct Choice {
        std::vector<int16_t> pages;
        int16_t scale = 0; ///< fit to page, full size, current view
        int32_t copies = 1;
        bool mayCrop = false; ///< full-size pages are cut to the paper without asking
    };

    const PrintingState& state() const { return state_; }
    /// Nothing is said any more of a job that is over.
    void forgetOutcome();
    /// Whether a job would be heeded now.
    bool isPossible() const;
    void imgPrintCurrentOnly();
    /// Asks by the print dialog.
    void imgPrintPages();
    /// The pages that were queued successfully.
    int32_t print(const Choice& choice);
    /// Ends the job at the next page.
    void cancel();

private:
    Raster printedPage(int16_t page) override;
    void printStatus(const std::string& text, int32_t percent) override;
    void printProgress(const std::string& record) override { parts_.logLine(record); }
    bool printGoesOn() override;

    void fillDialog(dlgPrint& dialog);
    Choice askUser();
    void begin(const Choice& choice);
    Raster currentView(const Choice& choice) const;
    void BeginPrintJob(const Choice& choice);
    Flow CachePages(const std::vector<int16_t>& pages);
    void fetchAhead(const std::vector<int16_t>& pages, size_t first);
    bool awaitPage(int16_t page);
    bool isPageAwaited(int16_t page) const;
    Flow askHost();
    PrintRequest requestOf(const Choice& choice);
    std::vector<std::string> pageNumbers(const std::vector<int16_t>& pages) const;
    void DoPrintJob(const PrintRequest& request);
    Flow showDebugInfo();
    void report(const PrintResult& result);
    void showPreview(const Choice& choice);
    Raster loadPage(int16_t page);
    bool isCurrent() const;

    ControlParts& parts_;
    Session& session_;
    PrintingState state_;
    std::unique_ptr<cPrinter> printer_;
    int32_t document_ = 0; ///< whose pages are printed
    bool asking_ = false;  ///< the dialog is shown
    /// What the view showed when the job was given, where only that is printed. Empty: it showed another
    /// page.
    std::optional<Raster> view_;
    bool cancelled_ = false;
    int32_t pagesQueued_ = 0;
};

} // namespace pixmo
