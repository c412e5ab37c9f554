#pragma once

#include "tests/behaviour/facedriver.h"

#include <QPoint>
#include <functional>
#include <memory>

struct _XDisplay;

namespace pixmo::qt {

/// Asks until it holds; false when it does not within long patience.
bool waitUntil(const std::function<bool()>& condition);

/// Keyboard and mouse of the screen, by the X server's own input events. Used from the thread of the tests;
/// each call returns when the windows have been handed its events.
class UserInput {
public:
    UserInput();
    ~UserInput();
    UserInput(const UserInput&) = delete;
    UserInput& operator=(const UserInput&) = delete;

    /// Waits until one of the program's windows has the keyboard.
    void press(int keyCode, int modifiers);
    void type(const std::string& text);
    /// A window that has just opened or grown stands where the window manager puts it once the program has
    /// heard of it.
    void waitForPlace() const;
    /// Places are the screen's.
    void moveTo(QPoint place);
    void button(behaviour::Mouse button, bool down);
    void wheel(int notches, int modifiers);
    void hold(int modifiers, bool down);
    /// All events so far have been handled, or a modal window that they opened is.
    void settle();

private:
    class Arrivals;

    void key(unsigned long symbol, bool down);
    void tap(unsigned long symbol);
    bool keyboardIsHere() const;

    _XDisplay* display_;
    std::unique_ptr<Arrivals> arrivals_;
};

} // namespace pixmo::qt
