#include "tests/com/face/facehostwindow.h"
#include "tests/com/printing/testprinter.h"

#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

namespace {

using namespace pixmo;
using namespace pixmo::com;

/// Loads the document and prints its first pages on the usual printer.
int printPages(const char* engine, int32_t document, int16_t pages) {
    const auto host = FaceHostWindow::create({600, 800});
    const auto control = host->face().control();
    control->setProperty("EngineAddress", std::string(engine));
    control->setProperty("PrintCaption", std::string("Caption of the comparison"));
    control->setProperty("PrintCoverSheet", false);
    control->LoadDocumentByDocID(document, 1);
    if (!pumpUntil(*host, [&] { return control->isIdle(); }))
        return 1;
    PrintJob::Choice choice;
    for (int16_t page = 1; page <= pages; ++page)
        choice.pages.push_back(page);
    return control->printJob().print(choice) == pages ? 0 : 1;
}

} // namespace

/// printpages DOCUMENT PAGES : prints the first pages of a document of the sample engine.
int main(int argc, char** argv) {
    const char* const engine = std::getenv("PIXMO_ENGINE");
    if (argc != 3 || !engine) {
        std::fprintf(stderr, "usage: PIXMO_ENGINE=http://... printpages DOCUMENT PAGES\n");
        return 2;
    }
    if (FAILED(OleInitialize(nullptr)))
        return 1;
    const int status = printPages(engine, std::atoi(argv[1]), static_cast<int16_t>(std::atoi(argv[2])));
    OleUninitialize();
    // To where the caller of this program can read it.
    std::string job = test_printer::takeJob();
    std::fwrite(job.data(), 1, job.size(), stdout);
    return job.empty() ? 1 : status;
}
