#pragma once

#include "faces/qt/imageview.h"
#include "tests/qt/engineprocess.h"

#include <functional>
#include <memory>
#include <vector>

class QAbstractScrollArea;

namespace pixmo::bench {

/// Milliseconds that it takes, by the clock on the wall.
double millisecondsOf(const std::function<void()>& act);
/// "name: median 1.23 ms, 95th percentile 2.34 ms (200)"
void report(const char* name, std::vector<double> milliseconds);
double residentMebibytes();

/// A widget in a window before the engine.
class ViewBench {
public:
    explicit ViewBench(const QString& documents = {});

    qt::ImageView& view() { return *view_; }
    QAbstractScrollArea& page() const;
    /// Waits until the page is painted.
    void open(int document, int page);
    void waitForPage(int page);
    /// From the act until what it changed is painted and handed to the screen.
    double untilPainted(const std::function<void()>& act) const;
    void press(int key) const;
    void wheel(int notches) const;

private:
    qt::EngineProcess engine_;
    std::unique_ptr<qt::ImageView> view_;
};

void turnPages();
void moveOverLargeDrawing();
void openManyThumbnails();

} // namespace pixmo::bench
