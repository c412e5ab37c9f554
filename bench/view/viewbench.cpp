#include "bench/view/viewbench.h"

#include "tests/qt/waiting.h"

#include <QAbstractScrollArea>
#include <QApplication>
#include <QWheelEvent>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <ctime>
#include <fstream>
#include <stdexcept>
#include <unistd.h>

namespace pixmo::bench {

namespace {

/// Counts what is painted in a widget.
class PaintCounter : public QObject {
public:
    explicit PaintCounter(QWidget& widget) : widget_(widget) { widget.installEventFilter(this); }
    ~PaintCounter() override { widget_.removeEventFilter(this); }
    PaintCounter(const PaintCounter&) = delete;
    PaintCounter& operator=(const PaintCounter&) = delete;

    bool eventFilter(QObject*, QEvent* event) override {
        painted = painted || event->type() == QEvent::Paint;
        return false;
    }

    bool painted = false;

private:
    QWidget& widget_;
};

} // namespace

Duration durationOf(const std::function<void()>& act) {
    const auto start = std::chrono::steady_clock::now();
    const std::clock_t processorStart = std::clock();
    act();
    const double processor = 1000.0 * static_cast<double>(std::clock() - processorStart) / CLOCKS_PER_SEC;
    const std::chrono::duration<double, std::milli> wall = std::chrono::steady_clock::now() - start;
    return {wall.count(), processor};
}

void report(const char* name, const std::vector<Duration>& durations) {
    const auto at = [&durations](double Duration::*field, size_t percent) {
        std::vector<double> values;
        values.reserve(durations.size());
        for (const Duration& each : durations)
            values.push_back(each.*field);
        std::sort(values.begin(), values.end());
        return values[values.size() * percent / 100];
    };
    std::printf("%-44s median %7.2f ms, 95 %% %7.2f ms; of the processor %7.2f, %7.2f (%zu)\n", name,
                at(&Duration::wall, 50), at(&Duration::wall, 95), at(&Duration::processor, 50),
                at(&Duration::processor, 95), durations.size());
    std::fflush(stdout);
}

double residentMebibytes() {
    std::ifstream facts("/proc/self/statm");
    int64_t whole = 0;
    int64_t resident = 0;
    facts >> whole >> resident;
    return static_cast<double>(resident * sysconf(_SC_PAGESIZE)) / 1'048'576;
}

ViewBench::ViewBench(const QString& documents)
    : engine_(QStringList(), documents), view_(std::make_unique<qt::ImageView>()) {
    view_->setEngineAddress(engine_.address());
    view_->setFetchDelay(1);
    view_->setResizeDelay(1);
    view_->setThumbsAvailable(true);
    view_->resize(1200, 1000);
    view_->show();
    if (!QTest::qWaitForWindowExposed(view_.get()))
        throw std::runtime_error("There is no screen.");
}

QAbstractScrollArea& ViewBench::page() const {
    return *view_->findChild<QAbstractScrollArea*>(QStringLiteral("lvrImage"));
}

void ViewBench::open(int document, int page) {
    view_->LoadDocumentByDocID(document, page);
    waitForPage(page);
}

void ViewBench::waitForPage(int page) {
    if (!qt::waitFor([&] { return view_->isIdle() && view_->isPageDisplayed() && view_->page() == page; }))
        throw std::runtime_error("A page does not come.");
    QCoreApplication::processEvents();
}

Duration ViewBench::untilPainted(const std::function<void()>& act) const {
    PaintCounter counter(*page().viewport());
    return durationOf([&] {
        act();
        while (!counter.painted)
            QCoreApplication::processEvents();
    });
}

void ViewBench::press(int key) const {
    QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
    QApplication::sendEvent(&page(), &event);
}

void ViewBench::wheel(int notches) const {
    QWidget& target = *page().viewport();
    const QPointF place = target.rect().center();
    QWheelEvent event(place, target.mapToGlobal(place), {}, {0, 120 * notches}, Qt::NoButton,
                      Qt::ControlModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&target, &event);
}

} // namespace pixmo::bench
