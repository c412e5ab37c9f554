#pragma once

#include "tests/behaviour/facedriver.h"
#include "tests/qt/engineprocess.h"
#include "tests/qt/hostwindow.h"
#include "tests/qt/userinput.h"

class QAbstractScrollArea;
class QToolBar;
class QScrollBar;

namespace pixmo::qt {

class ThumbsWindow;

} // namespace pixmo::qt

namespace pixmo::behaviour {

using namespace qt;

/// The Qt face for the behaviour suite.
class FaceDriver::Hands {
public:
    explicit Hands(const EngineProcess& sampleEngine) : engine(sampleEngine) {}

    ImageView& view() const { return host->view(); }
    /// Of the window that was turned to.
    QAbstractScrollArea& page() const;
    QToolBar& bar() const;
    /// On the screen; of a widget its middle. Fails the test when there is nothing.
    static std::optional<QPoint> placeOf(const QWidget* widget);
    QPoint onPage(int32_t x, int32_t y) const;
    /// Starts what may go on for long, or open a modal window.
    void start(const std::function<void()>& call);
    /// On the thread of the windows: where to click, as soon as there is something.
    using Find = std::function<std::optional<QPoint>()>;
    bool pointAt(const Find& find);
    void clickAt(const Find& find, Mouse button = Mouse::Left);
    void moveOnPage(int32_t x, int32_t y);

    const EngineProcess& engine;
    std::unique_ptr<HostWindow> host;
    UserInput input;
    ThumbsWindow* thumbs = nullptr; ///< while it was turned to
    int held = 0;                   ///< keys that stay pressed
    int underWay = 0;               ///< calls that were started and have not returned
};

} // namespace pixmo::behaviour
