#pragma once

#include "core/control/controlevents.h"
#include "core/control/controlinterface.h"
#include "core/control/diagnostics.h"
#include "core/control/printpages.h"
#include "core/control/propertyvalues.h"
#include "core/control/session.h"
#include "core/platform/clock.h"
#include "core/platform/dialogs.h"
#include "core/platform/printers.h"
#include "core/platform/settingsstore.h"
#include "core/platform/timer.h"
#include "core/printing/cprinter.h"
#include "core/printing/printclient.h"
#include "core/printing/printrequest.h"

#include <cstdint>
#include <memory>
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
    /// What it works with beside session and pages; all of it outlives the job.
    struct Uses {
        ControlInterface& ui;
        PropertyValues& properties;
        ControlEvents& events;
        Printers* printers; ///< nullptr: nothing can be printed
        Dialogs& dialogs;
        SettingsStore& settings;
        TimerFactory& timers;
        const Clock& clock;
    };
    PrintJob(Diagnostics& diagnostics, Session& session, PrintPages& pages, Uses uses);
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
    void printProgress(const std::string& record) override { diagnostics_.logLine(record); }
    bool printGoesOn() override;

    void fillDialog(dlgPrint& dialog);
    Choice askUser();
    void begin(const Choice& choice);
    void BeginPrintJob(const Choice& choice);
    Flow CachePages(const std::vector<int16_t>& pages);
    Flow askHost();
    PrintRequest requestOf(const Choice& choice);
    std::vector<std::string> pageNumbers(const std::vector<int16_t>& pages) const;
    void DoPrintJob(const PrintRequest& request);
    Flow showDebugInfo();
    void report(const PrintResult& result);
    void showPreview(const Choice& choice);

    Diagnostics& diagnostics_;
    Session& session_;
    PrintPages& pages_;
    Uses uses_;
    PrintingState state_;
    std::unique_ptr<cPrinter> printer_;
    bool asking_ = false; ///< the dialog is shown
    int32_t pagesQueued_ = 0;
};

} // namespace pixmo
