#include "tests/qt/userinput.h"

#include "tests/qt/uithread.h"

#include <QAbstractNativeEventFilter>
#include <QApplication>
#include <QWidget>
#include <QWindow>
#include <atomic>
#include <chrono>
#include <gtest/gtest.h>
#include <span>
#include <stdexcept>
#include <thread>
#include <xcb/xcb.h>

// The names of X are macros that others use too.
#include <X11/XKBlib.h>
#include <X11/Xlib.h>
#include <X11/extensions/XI2proto.h>
#include <X11/extensions/XInput2.h>
#include <X11/extensions/XTest.h>
#include <X11/keysym.h>
#undef None
#undef KeyPress
#undef KeyRelease

namespace pixmo::qt {

namespace {

constexpr auto Patience = std::chrono::seconds(15);

struct SymbolRow {
    int keyCode;
    KeySym symbol;
};

constexpr SymbolRow Symbols[] = {
    {behaviour::key::Backspace, XK_BackSpace},
    {behaviour::key::Tab, XK_Tab},
    {behaviour::key::Enter, XK_Return},
    {behaviour::key::Escape, XK_Escape},
    {behaviour::key::PageUp, XK_Page_Up},
    {behaviour::key::PageDown, XK_Page_Down},
    {behaviour::key::End, XK_End},
    {behaviour::key::Home, XK_Home},
    {behaviour::key::Left, XK_Left},
    {behaviour::key::Up, XK_Up},
    {behaviour::key::Right, XK_Right},
    {behaviour::key::Down, XK_Down},
    {behaviour::key::F3, XK_F3},
    {behaviour::key::F5, XK_F5},
};

KeySym symbolOf(int keyCode) {
    for (const SymbolRow& row : Symbols)
        if (row.keyCode == keyCode)
            return row.symbol;
    // Letters and digits; the symbol of a letter's key is the small one.
    return static_cast<KeySym>(keyCode >= 'A' && keyCode <= 'Z' ? keyCode + ('a' - 'A') : keyCode);
}

unsigned int buttonNumber(behaviour::Mouse button) {
    return button == behaviour::Mouse::Left ? 1 : button == behaviour::Mouse::Middle ? 2 : 3;
}

} // namespace

bool waitUntil(const std::function<bool()>& condition) {
    const auto end = std::chrono::steady_clock::now() + Patience;
    while (!condition()) {
        if (std::chrono::steady_clock::now() > end)
            return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    return true;
}

/// Sees what the X server hands to the program: its events of the mouse, and an event of our own behind those
/// of the user: when it comes, they have been handled.
class UserInput::Arrivals : public QAbstractNativeEventFilter {
public:
    explicit Arrivals(Display* display) : type_(XInternAtom(display, "PIXMO_TEST_SENTINEL", False)) {
        int firstEvent = 0;
        int firstError = 0;
        XQueryExtension(display, "XInputExtension", &inputExtension_, &firstEvent, &firstError);
        pointer_ = masterPointer(display);
        onUi([this] { qApp->installNativeEventFilter(this); });
    }
    ~Arrivals() override {
        onUi([this] { qApp->removeNativeEventFilter(this); });
    }

    bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr*) override {
        if (eventType != "xcb_generic_event_t")
            return false;
        const auto* const event = static_cast<xcb_generic_event_t*>(message);
        const int kind = event->response_type & 0x7F;
        if (kind == XCB_GE_GENERIC)
            noteButton(*reinterpret_cast<const xcb_ge_generic_event_t*>(event));
        if (kind != XCB_CLIENT_MESSAGE ||
            reinterpret_cast<const xcb_client_message_event_t*>(event)->type != type_)
            return false;
        ++sentinels_;
        return true;
    }

    bool passSentinel(Display* display, WId window) {
        XEvent event = {};
        event.xclient.type = ClientMessage;
        event.xclient.window = window;
        event.xclient.message_type = type_;
        event.xclient.format = 32;
        const int before = sentinels_;
        XSendEvent(display, window, False, 0, &event);
        XFlush(display);
        return waitUntil([&] { return sentinels_ > before; });
    }

    /// Presses and releases of the mouse so far.
    int buttons() const { return buttons_; }

private:
    static int masterPointer(Display* display) {
        int count = 0;
        const std::unique_ptr<XIDeviceInfo, decltype(&XIFreeDeviceInfo)> devices(
            XIQueryDevice(display, XIAllMasterDevices, &count), XIFreeDeviceInfo);
        for (const XIDeviceInfo& device : std::span(devices.get(), static_cast<size_t>(count)))
            if (device.use == XIMasterPointer)
                return device.deviceid;
        throw std::runtime_error("The screen has no pointer.");
    }

    /// Each comes twice: from the device itself, and from the pointer of the screen that the device moves,
    /// which is the one that windows are told of.
    void noteButton(const xcb_ge_generic_event_t& event) {
        const int device = reinterpret_cast<const xXIDeviceEvent&>(event).deviceid;
        if (event.extension == inputExtension_ && device == pointer_ &&
            (event.event_type == XI_ButtonPress || event.event_type == XI_ButtonRelease))
            ++buttons_;
    }

    const Atom type_;
    int inputExtension_ = 0;
    int pointer_ = 0;
    std::atomic<int> sentinels_ = 0;
    std::atomic<int> buttons_ = 0;
};

UserInput::UserInput() : display_(XOpenDisplay(nullptr)) {
    if (!display_)
        throw std::runtime_error("There is no screen for the tests' input events.");
    arrivals_ = std::make_unique<Arrivals>(display_);
}

UserInput::~UserInput() {
    arrivals_.reset();
    XCloseDisplay(display_);
}

void UserInput::settle() {
    const WId window = onUi([] {
        for (const QWindow* each : QGuiApplication::topLevelWindows())
            if (each->handle())
                return each->winId();
        return WId(0);
    });
    if (window == 0 || !arrivals_->passSentinel(display_, window))
        ADD_FAILURE() << "the windows do not handle their events";
    onUi([] {});
}

bool UserInput::keyboardIsHere() const {
    if (onUi([] { return QApplication::activePopupWidget() != nullptr; }))
        return true;
    const WId focused = onUi([] {
        const QWindow* const window = QGuiApplication::focusWindow();
        return window && window->isVisible() ? window->winId() : WId(0);
    });
    Window actual = 0;
    int revert = 0;
    XGetInputFocus(display_, &actual, &revert);
    return focused != 0 && focused == actual;
}

void UserInput::key(unsigned long symbol, bool down) {
    XTestFakeKeyEvent(display_, XKeysymToKeycode(display_, symbol), down ? True : False, CurrentTime);
}

void UserInput::hold(int modifiers, bool down) {
    if (modifiers & behaviour::with::Ctrl)
        key(XK_Control_L, down);
    if (modifiers & behaviour::with::Alt)
        key(XK_Alt_L, down);
    if (modifiers & behaviour::with::Shift)
        key(XK_Shift_L, down);
}

void UserInput::tap(unsigned long symbol) {
    key(symbol, true);
    key(symbol, false);
}

void UserInput::press(int keyCode, int modifiers) {
    EXPECT_TRUE(waitUntil([this] { return keyboardIsHere(); })) << "no window has the keyboard";
    hold(modifiers, true);
    tap(symbolOf(keyCode));
    hold(modifiers, false);
    settle();
}

void UserInput::type(const std::string& text) {
    for (const char character : text) {
        const auto symbol = static_cast<KeySym>(static_cast<unsigned char>(character));
        const KeyCode code = XKeysymToKeycode(display_, symbol);
        // The second symbol of a key is the one with Shift.
        const bool shifted = XkbKeycodeToKeysym(display_, code, 0, 0) != symbol;
        EXPECT_TRUE(waitUntil([this] { return keyboardIsHere(); })) << "no window has the keyboard";
        hold(shifted ? behaviour::with::Shift : 0, true);
        tap(symbol);
        hold(shifted ? behaviour::with::Shift : 0, false);
        settle();
    }
}

void UserInput::waitForPlace() const {
    struct Place {
        WId window = 0;
        QRect area;
        bool operator==(const Place&) const = default;
    };
    const auto believed = [] {
        return onUi([] {
            const QWindow* const window = QGuiApplication::focusWindow();
            return window ? Place{window->winId(), {window->mapToGlobal(QPoint()), window->size()}} : Place();
        });
    };
    EXPECT_TRUE(waitUntil([&] {
        const Place place = believed();
        XWindowAttributes actual = {};
        if (place.window == 0 || !XGetWindowAttributes(display_, place.window, &actual))
            return false;
        int x = 0;
        int y = 0;
        Window child = 0;
        XTranslateCoordinates(display_, place.window, actual.root, 0, 0, &x, &y, &child);
        return place.area == QRect(x, y, actual.width, actual.height);
    })) << "the window does not come to rest";
}

void UserInput::moveTo(QPoint place) {
    XTestFakeMotionEvent(display_, -1, place.x(), place.y(), CurrentTime);
    settle();
}

void UserInput::button(behaviour::Mouse which, bool down) {
    const int before = arrivals_->buttons();
    XTestFakeButtonEvent(display_, buttonNumber(which), down ? True : False, CurrentTime);
    XFlush(display_);
    // The window manager looks at presses first and hands them on when it likes.
    EXPECT_TRUE(waitUntil([&] { return arrivals_->buttons() > before; })) << "the click does not arrive";
    settle();
}

void UserInput::wheel(int notches, int modifiers) {
    constexpr unsigned int away = 4;
    constexpr unsigned int towards = 5;
    hold(modifiers, true);
    for (int notch = 0; notch < std::abs(notches); ++notch)
        for (const int down : {True, False})
            XTestFakeButtonEvent(display_, notches > 0 ? away : towards, down, CurrentTime);
    hold(modifiers, false);
    settle();
}

} // namespace pixmo::qt
