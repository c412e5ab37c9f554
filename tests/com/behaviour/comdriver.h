#pragma once

#include "core/base/toolbar.h"
#include "tests/behaviour/facedriver.h"
#include "tests/com/behaviour/formwindow.h"
#include "tests/com/behaviour/uithread.h"
#include "tests/transfers/enginecontrol.h"

#include <functional>
#include <memory>
#include <optional>

namespace pixmo::behaviour {

using namespace com;
using namespace com::test;

/// The control as hosts have it, for the behaviour suite. What hosts are not told, as whether it is idle, is
/// asked of its core.
class FaceDriver::Hands {
public:
    Hands(const UiThread& windows, const std::string& engineAddress)
        : ui(windows), address(engineAddress), engine(engineAddress) {}

    /// Of the thread of the windows, until it is told to quit.
    static void runMessageLoop();

    // On the thread of the windows.
    HWND part(const wchar_t* className) const;
    POINT onPage(int32_t x, int32_t y) const;
    /// Of the window that was turned to.
    HWND page() const { return part(thumbs ? L"Pixmo.Thumbnails" : L"Pixmo.Page"); }
    Toolbar buttons() const;
    HWND toolbarWindow() const { return part(L"ToolbarWindow32"); }
    /// The read-out, the status text, the zoom.
    std::vector<HWND> statusFields() const;
    ShownButton lookAtButton(size_t index) const;

    /// Starts what may go on for long, or open a modal window.
    void start(const std::function<void()>& call);
    std::string statusField(size_t index);
    /// On the thread of the windows: where to click, as soon as there is something.
    using Find = std::function<std::optional<POINT>()>;
    bool pointAt(const Find& find);
    void clickAt(const Find& find, Mouse button = Mouse::Left);
    void moveOnPage(int32_t x, int32_t y);
    void press(WORD virtualKey, int modifiers) const;
    void waitForKeyboard() const;
    void waitForNewWindow() const;

    const UiThread& ui;
    const std::string address;
    const transfers::EngineControl engine;
    std::shared_ptr<FormWindow> form;
    /// Of a property: the host has it as the error of its own call, not as the control's last one.
    std::optional<LastError> refusal;
    HWND thumbs = nullptr; ///< while it was turned to
    int held = 0;          ///< keys that are down when a button is clicked
    int underWay = 0;      ///< calls that were started and have not returned
};

} // namespace pixmo::behaviour
