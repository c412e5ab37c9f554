#pragma once

#include "faces/qt/widget/imageview.h"
#include "tests/qt/engineprocess.h"

#include <functional>
#include <memory>
#include <vector>

class QAbstractScrollArea;

namespace pixmo::bench {

/// How long something takes, in milliseconds.
struct Duration {
    double wall = 0;
    double processor = 0; ///< of all threads of the process; what a busy machine adds is not in it
};

Duration durationOf(const std::function<void()>& act);
/// A line with the median and the 95th percentile of both.
void report(const char* name, const std::vector<Duration>& durations);
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
    Duration untilPainted(const std::function<void()>& act) const;
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
