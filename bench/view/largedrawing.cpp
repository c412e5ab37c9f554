#include "bench/view/viewbench.h"

#include <QAbstractScrollArea>
#include <QAction>
#include <QTest>

namespace pixmo::bench {

namespace {

constexpr int Drawing = 1005; ///< 7200 x 10800, 1 bit
constexpr int Steps = 100;

std::vector<Duration> steps(const ViewBench& bench, const std::function<void(int step)>& act) {
    std::vector<Duration> times;
    times.reserve(Steps);
    for (int step = 0; step < Steps; ++step)
        times.push_back(bench.untilPainted([&] { act(step); }));
    return times;
}

/// There and back, so that no step comes to an end of the drawing.
std::vector<Duration> scrolling(const ViewBench& bench) {
    return steps(bench, [&](int step) { bench.press(step % 20 < 10 ? Qt::Key_Down : Qt::Key_Up); });
}

} // namespace

void moveOverLargeDrawing() {
    ViewBench bench;
    bench.open(Drawing, 1);
    report("drawing, scroll step, fitted to the width", scrolling(bench));
    report("drawing, zoom step by the wheel",
           steps(bench, [&](int step) { bench.wheel(step % 20 < 10 ? 1 : -1); }));
    QWidget& viewport = *bench.page().viewport();
    QTest::mousePress(&viewport, Qt::LeftButton, {}, {600, 600});
    report("drawing, drag step (no gray while it lasts)", steps(bench, [&](int step) {
               QTest::mouseMove(&viewport, {600, 500 - 7 * (step % 20 < 10 ? step % 20 : 20 - step % 20)});
           }));
    QTest::mouseRelease(&viewport, Qt::LeftButton, {}, {600, 600});
    bench.view().action(QStringLiteral("FITBEST"))->trigger();
    report("drawing, turned by a quarter, whole in the view",
           steps(bench, [&](int) { bench.view().action(QStringLiteral("ROTR"))->trigger(); }));
}

} // namespace pixmo::bench
