#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace pixmo::behaviour {

/// Virtual-key codes; letters and digits are their own codes.
namespace key {
inline constexpr int Backspace = 0x08;
inline constexpr int Tab = 0x09;
inline constexpr int Enter = 0x0D;
inline constexpr int Escape = 0x1B;
inline constexpr int PageUp = 0x21;
inline constexpr int PageDown = 0x22;
inline constexpr int End = 0x23;
inline constexpr int Home = 0x24;
inline constexpr int Left = 0x25;
inline constexpr int Up = 0x26;
inline constexpr int Right = 0x27;
inline constexpr int Down = 0x28;
inline constexpr int F3 = 0x72;
inline constexpr int F5 = 0x74;
} // namespace key

/// States of the keyboard, summed.
namespace with {
inline constexpr int Nothing = 0;
inline constexpr int Shift = 1;
inline constexpr int Ctrl = 2;
inline constexpr int Alt = 4;
} // namespace with

enum class Window : uint8_t { Control, Thumbnails };

enum class Mouse : uint8_t { Left, Middle, Right };

/// 16 and 32 bit integers, enumerations and colours are int32_t. Text is UTF-8.
using Value = std::variant<bool, int32_t, std::string>;

/// A button of the toolbar as the user sees it.
struct ShownButton {
    std::string key; ///< of a separator too
    std::string caption;
    std::string tip;
    bool separator = false;
    bool group = false; ///< stays pressed until another one of its group is
    bool visible = false;
    bool enabled = false;
    bool pressed = false;
    int32_t imageSize = 0; ///< device-independent pixels, 0 for a separator
};

/// An entry of an open menu as the user sees it.
struct ShownEntry {
    std::string text; ///< "&" before the mnemonic; empty for a separator
    std::string keys; ///< that do the same, as shown: "Ctrl+Shift+H"
    bool separator = false;
    bool enabled = false;
    bool checked = false;
};

struct ShownBox {
    std::string text;                 ///< lines end in LF
    std::string icon;                 ///< "", "exclamation", "critical", "information", "question"
    std::vector<std::string> buttons; ///< those that answer, without mnemonics
};

/// A page in the window of the thumbnails as assistive programs are told of it; device pixels of the view.
struct ShownThumb {
    std::string name;
    std::string description; ///< lines end in LF
    bool selected = false;
    bool focused = false;
    int32_t left = 0;
    int32_t top = 0;
    int32_t width = 0;
    int32_t height = 0;
};

/// One direction, device pixels of the picture.
struct ShownScroll {
    bool visible = false;
    int32_t position = 0;
    int32_t maximum = 0;
};

/// What is on the screen: rows from the top, 0xRRGGBB.
struct Picture {
    int32_t width = 0;
    int32_t height = 0;
    std::vector<uint32_t> pixels;

    uint32_t at(int32_t x, int32_t y) const {
        return pixels[static_cast<size_t>(y) * static_cast<size_t>(width) + static_cast<size_t>(x)];
    }
    bool operator==(const Picture&) const = default;
};

/// A field of a dialog.
struct ShownField {
    bool visible = false;
    bool enabled = false;
    bool chosen = false; ///< an option
};

struct LastError {
    int32_t number = 0;
    std::string source;
    std::string description;
};

/// What the host does inside of events that let it decide.
struct HostAnswers {
    bool takesKeys = false; ///< sets KeyCode and KeyAscii to 0
    bool cancelsPrinting = false;
};

/// One face of the control in a real window of a host, before the sample engine; the user's hands and eyes.
/// The host has a text field before the control and one behind it in the order of Tab.
///
/// All is called from the thread of the tests. The face lives on a thread of its own, whose message loop
/// runs all the time, that of a modal window too; each call does its work there. What the user does by
/// keyboard and mouse comes as the system's own input events; such a call returns when the face has been
/// handed the last of them and has gone back to its message loop (a modal window that opened counts as one).
/// Places on the page are device pixels of the view. A call that finds nothing to act on fails the test.
class FaceDriver {
public:
    FaceDriver();
    ~FaceDriver();
    FaceDriver(const FaceDriver&) = delete;
    FaceDriver& operator=(const FaceDriver&) = delete;

    // The control, 900 x 700 device-independent pixels large. At most one at a time; the host's window is in
    // front and `lvrImage` has the focus.
    void create();
    /// Its windows and its page files are gone, its settings are stored.
    void destroy();
    /// Before create: the settings of the user are those of a new user.
    void forgetSettings();
    Value get(const std::string& property);
    void set(const std::string& property, const Value& value);
    LastError lastError();
    /// LoadDocumentByDocID; does not wait for it.
    void load(int32_t docID, int16_t page);
    /// "Clear", "clearCache" or "Refresh".
    void call(const std::string& method);
    /// Of the control, device-independent pixels; of the thumbnails as if by their window's upper left
    /// corner.
    void resize(int32_t width, int32_t height);
    void answerEvents(const HostAnswers& answers);
    /// A command that a host's own menu gives, by its key: "ZOOMIN".
    void command(const std::string& key);
    /// How many milliseconds a transfer may be silent before it is given up.
    void setStallTimeout(int milliseconds);
    /// Events so far and forgets them: "PageChanged 1001 3", "KeyDown 34 0", "KeyPress 97", "Click",
    /// "PrintJobBegin 2 1001". Keys that reach the host's window because the control has no use for them:
    /// "HostKey 65 0".
    std::vector<std::string> takeEvents();

    /// Which open window all about toolbar, view, size and their menus means from now on: the control at
    /// first.
    void turnTo(Window window);

    // What the user sees.
    std::vector<ShownButton> toolbar();
    /// "Page 3 of 12"
    std::string readOut();
    std::string status();
    /// In place of the page, "" while the page is there; lines end in LF.
    std::string notice();
    /// For screen readers: "Page 3 of 12, 85 %", or the notice.
    std::string description();
    /// No transfer, no delayed fetch, no delayed repaint, no method that has not returned, no modal window.
    bool isIdle();
    bool isPageDisplayed();
    ShownScroll scroll(bool horizontal);
    /// Code of the pointer over the page: 0 arrow, 2 cross, 13 arrow with hourglass, 15 in all directions.
    int32_t pointer();
    /// Page files in the cache of this control and of those before it.
    int pageFiles();
    /// Lines of `txtDebug`, none while it is hidden.
    std::optional<std::string> debugPane();
    /// The view without scroll bars, from the screen, once all that was to be painted has been.
    Picture picture();
    std::vector<ShownThumb> thumbs();
    /// "lvrImage", "txtDebug", "before" or "behind" (the host's fields), the name of a field of a dialog
    /// ("txtPageNumber"), else "".
    std::string focus();

    // What the user does.
    /// These keys are held down at each click until the next call.
    void hold(int modifiers);
    void press(int keyCode, int modifiers = with::Nothing);
    /// ASCII.
    void type(const std::string& text);
    void click(int32_t x, int32_t y, Mouse button = Mouse::Left);
    void doubleClick(int32_t x, int32_t y);
    /// Presses, moves in some steps and stays pressed until `release`.
    void drag(int32_t fromX, int32_t fromY, int32_t toX, int32_t toY, Mouse button = Mouse::Left);
    void release(Mouse button = Mouse::Left);
    /// Away from the user positive.
    void wheel(int32_t x, int32_t y, int notches, int modifiers = with::Nothing);
    /// In the middle of the button, enabled or not.
    void clickButton(const std::string& key);
    void clickReadOut();
    /// A click into a field of the host: "before" or "behind".
    void clickHostField(const std::string& name);

    // Menus: open by the right mouse button, over the toolbar or in the middle of the page.
    void openToolbarMenu();
    void openPageMenu();
    /// None while no menu is open.
    std::optional<std::vector<ShownEntry>> menu();
    /// Clicks the entry of that text, which closes the menu.
    void choose(const std::string& text);

    // Message boxes and dialogs; only the topmost is seen. "" and none when there is none.
    /// Answers the message box by the first of the buttons that it has, by their texts without mnemonics:
    /// "OK", "Cancel", "Abort", "Retry", "Ignore". What the box showed, as soon as it is gone; none, and
    /// nothing is done, while no box stands. It is looked at and answered in one look: the next one may show
    /// the same.
    std::optional<ShownBox> answer(const std::vector<std::string>& buttons);
    /// "dlgGotoPage", "dlgAbout" (image information too), "dlgLog", "dlgPrint", "dlgPreview",
    /// "dlgThumbs".
    std::string dialog();
    std::string dialogTitle();
    /// Its upper left corner on the screen.
    std::pair<int32_t, int32_t> dialogPlace();
    /// Fields of dialogs go by their names in the core; lines end in LF.
    std::string dialogText(const std::string& field);
    /// What is selected in it.
    std::string selectedText(const std::string& field);
    /// By its name, a button or an option by its text without mnemonic; not visible: there is none.
    ShownField dialogField(const std::string& field);
    void clickDialogField(const std::string& field);
    /// Of its window, device-independent pixels.
    std::pair<int32_t, int32_t> dialogSize();
    void resizeDialog(int32_t width, int32_t height);
    /// Lines end in LF.
    std::string clipboardText();
    /// As if pasted.
    void setDialogText(const std::string& field, const std::string& text);
    /// By its text without mnemonic; "" closes the window by its frame.
    void pressDialogButton(const std::string& button);

    // The sample engine.
    std::string engineAddress();
    /// One fault a line, "" for none: "stall:GP". See the engine's option --fault.
    void setFaults(const std::string& faults);
    /// Whether the network beneath always tells when a connection is reset. Wine's monikers do not: then the
    /// transfer ends when it has been silent for too long.
    bool hearsResets();
    /// Requests of a kind ("IC", "PC", "GP") so far.
    int requests(const std::string& kind);

    /// What only the face's test program knows, which defines all of this class.
    class Hands;

private:
    std::unique_ptr<Hands> my_;
};

} // namespace pixmo::behaviour
