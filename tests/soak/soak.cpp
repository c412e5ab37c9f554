#include "tests/soak/soak.h"

#include "tests/qt/waiting.h"

#include <QAction>
#include <cstdio>
#include <fstream>
#include <unistd.h>

namespace pixmo::qt {

namespace {

constexpr int Document = 1001;
constexpr int Pages = 12;
constexpr int OtherDocument = 1002;
/// Caches of the libraries fill up at first; what grows afterwards grows for ever.
constexpr int WarmUp = 400;
constexpr int64_t AllowedGrowth = int64_t{16} << 20;
constexpr int ReportEvery = 200;
constexpr double BytesInMiB = 1'048'576;

int64_t residentBytes() {
    std::ifstream facts("/proc/self/statm");
    int64_t whole = 0;
    int64_t resident = 0;
    facts >> whole >> resident;
    return resident * sysconf(_SC_PAGESIZE);
}

int64_t filesLeft() {
    int64_t count = 0;
    for (const auto& entry :
         std::filesystem::recursive_directory_iterator(std::filesystem::temp_directory_path()))
        count += entry.path().string().find("pixmo-pages-") != std::string::npos ? 1 : 0;
    return count;
}

} // namespace

void Soak::begin() {
    view_ = std::make_unique<ImageView>();
    view_->setEngineAddress(engine_.address());
    view_->setFetchDelay(5);
    view_->setResizeDelay(20);
    view_->resize(800, 700);
    view_->show();
    QObject::connect(view_.get(), &ImageView::PageChanged, view_.get(),
                     [this](int document, int) { displayed_ += document != 0 ? 1 : 0; });
    view_->LoadDocumentByDocID(Document, 1);
}

bool Soak::run() {
    begin();
    int64_t before = 0;
    for (int change = 1; change <= changes_; ++change) {
        changePage();
        letPass();
        disturb();
        if (change == std::min(WarmUp, changes_ / 2))
            before = residentBytes();
        if (change % ReportEvery == 0)
            std::printf("%5d changes: %6.1f MiB, %d pages displayed, %d cancelled\n", change,
                        static_cast<double>(residentBytes()) / BytesInMiB, displayed_, cancelled_);
    }
    engine_.setFaults("");
    waitFor([this] { return view_->isIdle(); });
    const int64_t after = residentBytes();
    view_.reset();
    return report(before, after);
}

void Soak::changePage() {
    switch (chance(4)) {
    case 0:
        view_->action(QStringLiteral("PAGENEXT"))->trigger();
        break;
    case 1:
        view_->action(QStringLiteral("PAGEPREV"))->trigger();
        break;
    default:
        view_->setPage(static_cast<short>(1 + chance(Pages)));
    }
}

void Soak::letPass() {
    if (chance(3) == 0)
        waitFor([this] { return view_->isIdle(); });
    else
        QTest::qWait(chance(20));
}

void Soak::disturb() {
    if (chance(5) == 0 && view_->action(QStringLiteral("CANCEL"))->isEnabled()) {
        view_->action(QStringLiteral("CANCEL"))->trigger();
        ++cancelled_;
    }
    if (chance(6) == 0)
        view_->clearCache();
    if (chance(40) == 0)
        view_->resize(400 + chance(600), 300 + chance(600));
    if (chance(60) == 0)
        view_->LoadDocumentByDocID(chance(2) == 0 ? Document : OtherDocument, 1 + chance(3));
    if (chance(50) == 0)
        engine_.setFaults(QByteArray("delay:GP=") + QByteArray::number(chance(40)));
}

bool Soak::report(int64_t before, int64_t after) const {
    const int64_t left = filesLeft();
    std::printf(
        "memory after warming up %.1f MiB, at the end %.1f MiB; message boxes %lld; files left %lld\n",
        static_cast<double>(before) / BytesInMiB, static_cast<double>(after) / BytesInMiB,
        static_cast<long long>(boxes_.texts().size()), static_cast<long long>(left));
    for (const QString& text : boxes_.texts())
        std::printf("  %s\n", qUtf8Printable(text));
    return after - before <= AllowedGrowth && left == 0 && displayed_ > 0;
}

} // namespace pixmo::qt
