#pragma once

#include "core/base/event.h"
#include "core/platform/printerdevice.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace pixmo {

/// Where a face shows a sheet of paper, or a text in its place.
class SheetCanvas {
public:
    virtual ~SheetCanvas() = default;

    /// A device with the metrics of the printer that draws upon a new white sheet of that many pixels, which
    /// is not shown yet; nullptr when there is no memory for it. It may outlive the canvas, the printer not.
    virtual std::unique_ptr<PrinterDevice> newSheet(const PrinterDevice& printer, Size size) = 0;
    /// The sheet made last takes the place of what stands there.
    virtual void showSheet() = 0;
    virtual void say(const std::string& text) = 0;
};

/// Part of a text, in bytes from its beginning.
struct TextRange {
    size_t begin = 0;
    size_t end = 0;

    bool operator==(const TextRange&) const = default;
};

/// Width and height of the program's picture, in device-independent pixels.
constexpr int32_t DialogIconSize = 64;

/// How much larger than the usual letters those of a heading are.
constexpr double DialogHeadingScale = 1.6;

/// A field of a described window, or fields that stand together. A face makes the system's own control of it,
/// asks the functions for its state when the window opens, after every handler and after every
/// Dialog::Changed, and calls the handlers for what the user does. A function may be missing.
struct DialogPart {
    enum class Kind : uint8_t {
        Row,     ///< parts side by side
        Column,  ///< parts from top to bottom
        Frame,   ///< a column with a border and its text upon it
        Buttons, ///< those that end a window, in the order that users of the system know
        Label,   ///< one line; with a mnemonic it leads to the next field
        Heading, ///< a line in large letters
        Lines,   ///< several lines to read
        Icon,    ///< the program's
        Text,    ///< a line to type in
        Number,  ///< the same with arrows up and down, between 1 and `most`
        Option,  ///< one of several that follow each other, of which one is chosen
        List,    ///< entries of which any may be selected
        Button,
        ScrolledText, ///< many lines to read, to search and to copy from, in letters of equal width
        Sheet,        ///< a picture of a sheet of paper
    };
    /// What a button means to the system, which may have a text and a place of its own for it.
    enum class Meaning : uint8_t { None, Ok, Cancel, Close };

    Kind kind = Kind::Label;
    std::string name = {};   ///< "txtPageNumber"
    std::string text = {};   ///< "&" before the mnemonic
    std::string spoken = {}; ///< for assistive tools, where no text on it or before it says what it is
    int32_t width = 0;       ///< in characters of usual width; 0: what the text needs
    bool stretches = false;  ///< takes the room that is left over
    bool isCut = false;      ///< a text that is too long is cut, rather than the window made wide
    bool isCopied = false;   ///< the user may select it, where the system's labels let him
    bool isCentred = false;
    bool selectsAll = false; ///< its whole text whenever it gets the focus
    bool isDefault = false;  ///< the button that Enter presses
    Meaning meaning = Meaning::None;
    int32_t most = 0;

    std::function<std::string()> shown = {}; ///< what stands in it; else `text`
    std::function<bool()> isVisible = {};
    std::function<bool()> isEnabled = {};
    std::function<bool()> isChosen = {};
    std::function<void()> clicked = {};
    std::function<void(const std::string&)> changed = {};
    std::function<int16_t(int16_t)> keyPress = {}; ///< the character as it enters the box, 0: not at all
    std::vector<std::string> entries = {};
    std::function<bool(size_t)> isSelected = {};
    std::function<void(size_t, bool)> select = {};
    std::function<TextRange()> selection = {};           ///< of the text shown; it is brought into view
    std::function<void(TextRange)> selected = {};        ///< told before any other handler
    std::function<void(SheetCanvas*, Size)> canvas = {}; ///< its room in device pixels; nullptr at its end

    std::vector<DialogPart> parts = {};

    std::string textNow() const { return shown ? shown() : text; }
    bool visibleNow() const { return !isVisible || isVisible(); }
    bool enabledNow() const { return !isEnabled || isEnabled(); }
};

/// A key that does something wherever the focus is.
struct DialogKey {
    int16_t keyCode = 0; ///< virtual-key code
    int16_t shift = 0;   ///< 1 Shift, 2 Ctrl, 4 Alt, summed
    std::function<void()> pressed;
};

/// The sizes of a window that the user may resize, in device-independent pixels.
struct DialogSize {
    Size first;
    Size least;
    std::function<void(Size)> keep = {}; ///< told at the end, unless the window is maximized
};

struct DialogDescription {
    std::string name; ///< "dlgGotoPage"
    std::string title;
    DialogPart content;
    std::vector<DialogKey> keys = {};
    std::optional<DialogSize> size = {}; ///< none: as large as the content needs
};

/// A window whose state and rules the core holds and which a face shows as it is described.
class Dialog {
public:
    Dialog() = default;
    virtual ~Dialog() = default;
    Dialog(const Dialog&) = delete;
    Dialog& operator=(const Dialog&) = delete;

    /// Its functions are valid as long as the object.
    virtual DialogDescription describe() = 0;
    /// Escape, the frame's button, or the end of the face.
    virtual void cancel() { close(); }

    bool isOpen() const { return open_; }
    /// The field that is to have the focus, all its text selected; "" when it stays where it is.
    std::string takeFocus() { return std::exchange(focus_, {}); }

    /// The state is another one: to be shown, or the window to be closed. Not raised by every handler.
    Event<> Changed;

protected:
    void close();
    void setFocus(std::string field) { focus_ = std::move(field); }

private:
    bool open_ = true;
    std::string focus_;
};

inline void Dialog::close() {
    open_ = false;
    Changed.raise();
}

} // namespace pixmo
