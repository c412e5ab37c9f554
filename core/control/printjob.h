#pragma once

#include "core/control/commands.h"
#include "core/control/controlparts.h"
#include "core/control/session.h"
#include "core/printing/cprinter.h"
#include "core/printing/printclient.h"
#include "core/printing/printrequest.h"

#include <cstdint>
#include <memory>
#include <vector>

namespace pixmo {

class dlgPrint;

/// The control's side of printing: what is printed, whether the host lets it, and the pages for it. One job
/// at a time; a second one that is asked for while one runs is ignored.
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

    bool isRunning() const { return parts_.printing.running; }
    void imgPrintCurrentOnly();
    /// Asks by the print dialog.
    void imgPrintPages();
    void print(const Choice& choice);
    /// Ends the job at the next page.
    void cancel();
    /// Pages of the last job that were queued successfully, -1 when it printed nothing.
    int32_t pagesQueued() const { return pagesQueued_; }

private:
    Raster printedPage(int16_t page) override;
    void printStatus(const std::string& text, int32_t percent) override;
    void printProgress(const std::string& record) override { parts_.logLine(record); }
    bool printGoesOn() override;

    bool isPossible() const;
    void fillDialog(dlgPrint& dialog);
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
    bool isCurrent() const;

    ControlParts& parts_;
    Session& session_;
    std::unique_ptr<cPrinter> printer_;
    int32_t document_ = 0; ///< whose pages are printed
    bool printsView_ = false;
    bool cancelled_ = false;
    int32_t pagesQueued_ = -1;
};

} // namespace pixmo
