#include "faces/com/windows/commandtoolbar.h"

#include "faces/com/base/pixelbuffer.h"
#include "faces/com/base/widetext.h"
#include "faces/com/base/window.h"
#include "faces/com/windows/colours.h"
#include "faces/com/windows/dpi.h"
#include "faces/com/windows/fonts.h"
#include "icons/commandicon.h"

#include <algorithm>
#include <utility>

namespace pixmo::com {

namespace {

/// Above and below a picture together, and on each side of it; device-independent pixels.
constexpr int Padding = 6;
constexpr int RowMargin = 2; ///< below the last row
constexpr int FirstCommand = 1;

int commandOf(size_t button) {
    return FirstCommand + static_cast<int>(button);
}

BYTE styleOf(ButtonStyle style) {
    switch (style) {
    case ButtonStyle::Separator:
        return BTNS_SEP;
    case ButtonStyle::Check:
        return BTNS_CHECK;
    case ButtonStyle::ButtonGroup:
        return BTNS_CHECKGROUP;
    default:
        return BTNS_BUTTON;
    }
}

BYTE stateOf(const ToolButton& button) {
    return static_cast<BYTE>((button.Enabled ? TBSTATE_ENABLED : 0) | (button.Visible ? 0 : TBSTATE_HIDDEN) |
                             (button.Pressed ? TBSTATE_CHECKED : 0));
}

/// How much of each pixel the icon covers. A mirrored toolbar turns its pictures round: those that point
/// nowhere come turned.
std::vector<uint8_t> coverageOf(const std::string& key, int32_t size, bool mirrored) {
    std::vector<uint8_t> cover = commandIcon(key, size);
    if (mirrored && !isIconDirectional(key))
        for (auto row = cover.begin(); row != cover.end(); row += size)
            std::reverse(row, row + size);
    return cover;
}

/// The icon in one colour, as wide as the picture and in its middle; all transparent without coverage.
BitmapHandle makePicture(const std::vector<uint8_t>& cover, SIZE size, COLORREF colour) {
    const BITMAPINFO info = describePixels({size.cx, size.cy});
    void* bits = nullptr;
    BitmapHandle bitmap(CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0));
    auto* pixels = static_cast<uint32_t*>(bits) + (size.cy - size.cx) / 2 * size.cx;
    for (size_t i = 0; bitmap && i < cover.size(); ++i)
        pixels[i] = uint32_t{cover[i]} << 24U | rgbOf(colour);
    return bitmap;
}

} // namespace

CommandToolbar::CommandToolbar(HWND parent, std::string_view name, bool mirrored, Run run)
    : parent_(parent), name_(toWide(name)), mirrored_(mirrored), run_(std::move(run)) {}

CommandToolbar::~CommandToolbar() {
    destroyWindow();
}

void CommandToolbar::destroyWindow() {
    // A bar whose button does this is not done with its click yet.
    if (bar_ && inCommand_) {
        ShowWindow(bar_, SW_HIDE);
        PostMessageW(std::exchange(bar_, nullptr), WM_CLOSE, 0, 0);
    } else if (bar_) {
        DestroyWindow(std::exchange(bar_, nullptr));
    }
    controls_->destroyImages(std::exchange(images_, nullptr));
    controls_->destroyImages(std::exchange(disabledImages_, nullptr));
}

CommandToolbar::Look CommandToolbar::lookOf(const Toolbar& toolbar) const {
    Look look;
    look.dpi = dpiOf(parent_);
    look.imageSize = toolbar.Images ? scaled(toolbar.Images->size, look.dpi) : 0;
    for (const ToolButton& button : toolbar.Buttons) {
        look.keys.push_back(button.Key);
        look.captions = look.captions || !button.Caption.empty();
    }
    return look;
}

void CommandToolbar::renew(HFONT font, HBRUSH back) {
    font_ = font;
    back_ = back;
    destroyWindow();
}

void CommandToolbar::mirror(const Toolbar& toolbar) {
    Look look = lookOf(toolbar);
    if (!bar_ || look != look_) {
        look_ = std::move(look);
        destroyWindow();
        makeWindow(toolbar);
    }
    tips_.clear();
    for (const ToolButton& button : toolbar.Buttons)
        tips_.push_back(button.ToolTipText);
    for (size_t i = 0; i < toolbar.Buttons.size(); ++i) {
        const auto command = static_cast<WPARAM>(commandOf(i));
        const BYTE state = stateOf(toolbar.Buttons[i]);
        if (SendMessageW(bar_, TB_GETSTATE, command, 0) != state)
            SendMessageW(bar_, TB_SETSTATE, command, MAKELPARAM(state, 0));
    }
}

void CommandToolbar::makeWindow(const Toolbar& toolbar) {
    const CommonControls::Scope scope(*controls_);
    bar_ = CreateWindowExW(mirrored_ ? WS_EX_LAYOUTRTL : 0, TOOLBARCLASSNAMEW, name_.c_str(),
                           WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS | TBSTYLE_FLAT | TBSTYLE_CUSTOMERASE |
                               TBSTYLE_TOOLTIPS | TBSTYLE_WRAPABLE | CCS_NODIVIDER | CCS_NORESIZE |
                               CCS_NOPARENTALIGN,
                           0, 0, 0, 0, parent_, nullptr, thisModule(), nullptr);
    if (font_)
        SendMessageW(bar_, WM_SETFONT, reinterpret_cast<WPARAM>(font_), FALSE);
    SendMessageW(bar_, TB_BUTTONSTRUCTSIZE, sizeof(TBBUTTON), 0);
    setSizes();
    images_ = makeImages(toolbar, GetSysColor(COLOR_BTNTEXT));
    disabledImages_ = makeImages(toolbar, GetSysColor(COLOR_GRAYTEXT));
    SendMessageW(bar_, TB_SETIMAGELIST, 0, reinterpret_cast<LPARAM>(images_));
    SendMessageW(bar_, TB_SETDISABLEDIMAGELIST, 0, reinterpret_cast<LPARAM>(disabledImages_));
    addButtons(toolbar);
}

/// Without captions the texts are there all the same, as the buttons' names.
void CommandToolbar::setSizes() const {
    const SIZE image = pictureSize();
    SendMessageW(bar_, TB_SETBITMAPSIZE, 0, MAKELPARAM(image.cx, image.cy));
    SendMessageW(bar_, TB_SETPADDING, 0, MAKELPARAM(2 * scaled(Padding, look_.dpi), Padding));
    if (!look_.captions)
        SendMessageW(bar_, TB_SETMAXTEXTROWS, 0, 0);
}

/// Not every system lets the padding above and below a picture grow: what the resolution asks for beside the
/// usual one is part of the picture.
SIZE CommandToolbar::pictureSize() const {
    return {look_.imageSize, look_.imageSize + scaled(Padding, look_.dpi) - Padding};
}

void CommandToolbar::addButtons(const Toolbar& toolbar) const {
    for (size_t i = 0; i < toolbar.Buttons.size(); ++i) {
        const ToolButton& button = toolbar.Buttons[i];
        const bool separator = button.Style == ButtonStyle::Separator;
        const std::wstring text = toWide(button.Description);
        TBBUTTON entry{};
        entry.iBitmap = separator ? scaled(Padding, look_.dpi) : static_cast<int>(i);
        entry.idCommand = commandOf(i);
        entry.fsState = stateOf(button);
        entry.fsStyle = static_cast<BYTE>(styleOf(button.Style) | (separator ? 0 : BTNS_NOPREFIX));
        entry.iString = separator ? -1 : reinterpret_cast<INT_PTR>(text.c_str());
        SendMessageW(bar_, TB_ADDBUTTONSW, 1, reinterpret_cast<LPARAM>(&entry));
        if (!separator)
            setWidth(commandOf(i), look_.captions ? text : std::wstring());
    }
}

/// So wide that picture and caption are seen as a whole.
void CommandToolbar::setWidth(int command, const std::wstring& caption) const {
    const int wide = std::max<int>(look_.imageSize, textSize(font_, caption).cx);
    TBBUTTONINFOW info{};
    info.cbSize = sizeof info;
    info.dwMask = TBIF_SIZE;
    info.cx = static_cast<WORD>(wide + 2 * scaled(Padding, look_.dpi));
    SendMessageW(bar_, TB_SETBUTTONINFOW, static_cast<WPARAM>(command), reinterpret_cast<LPARAM>(&info));
}

HIMAGELIST CommandToolbar::makeImages(const Toolbar& toolbar, COLORREF colour) const {
    const SIZE size = pictureSize();
    const HIMAGELIST images = controls_->makeImages(size, static_cast<int>(toolbar.Buttons.size()));
    for (const ToolButton& button : toolbar.Buttons)
        controls_->addImage(images,
                            makePicture(coverageOf(button.Key, size.cx, mirrored_), size, colour).get());
    return images;
}

int CommandToolbar::heightFor(int width) const {
    RECT present{};
    GetWindowRect(bar_, &present);
    if (present.right - present.left != width)
        SetWindowPos(bar_, nullptr, 0, 0, width, present.bottom - present.top,
                     SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    SendMessageW(bar_, TB_AUTOSIZE, 0, 0);
    LONG bottom = 0;
    for (size_t i = 0; i < look_.keys.size(); ++i) {
        RECT place{};
        if (SendMessageW(bar_, TB_GETITEMRECT, i, reinterpret_cast<LPARAM>(&place)))
            bottom = std::max(bottom, place.bottom);
    }
    return bottom + scaled(RowMargin, look_.dpi);
}

void CommandToolbar::place(const RECT& place) const {
    SetWindowPos(bar_, nullptr, place.left, place.top, place.right - place.left, place.bottom - place.top,
                 SWP_NOZORDER | SWP_NOACTIVATE);
}

std::optional<LRESULT> CommandToolbar::onParentMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_COMMAND && reinterpret_cast<HWND>(lParam) == bar_) {
        const size_t button = LOWORD(wParam) - size_t{FirstCommand};
        // The look changes when the command does.
        if (button < look_.keys.size()) {
            const bool before = std::exchange(inCommand_, true);
            run_(std::string(look_.keys[button]));
            inCommand_ = before;
        }
        return 0;
    }
    if (message != WM_NOTIFY)
        return std::nullopt;
    auto* const header = reinterpret_cast<NMHDR*>(lParam);
    if (header->hwndFrom != bar_)
        return std::nullopt;
    if (header->code == NM_CUSTOMDRAW)
        return erase(*reinterpret_cast<NMTBCUSTOMDRAW*>(lParam));
    if (header->code != TBN_GETINFOTIPW)
        return std::nullopt;
    showTip(*reinterpret_cast<NMTBGETINFOTIPW*>(lParam));
    return 0;
}

/// A flat toolbar would have its parent draw behind the buttons, in the wrong place where it is mirrored.
std::optional<LRESULT> CommandToolbar::erase(const NMTBCUSTOMDRAW& drawing) const {
    if (drawing.nmcd.dwDrawStage != CDDS_PREERASE)
        return std::nullopt;
    RECT all{};
    GetClientRect(bar_, &all);
    FillRect(drawing.nmcd.hdc, &all, back_);
    return CDRF_SKIPDEFAULT;
}

void CommandToolbar::showTip(NMTBGETINFOTIPW& tip) const {
    const auto button = static_cast<size_t>(tip.iItem - FirstCommand);
    if (button < tips_.size())
        lstrcpynW(tip.pszText, toWide(tips_[button]).c_str(), tip.cchTextMax);
}

std::optional<RECT> CommandToolbar::buttonPlace(const std::string& key) const {
    const auto found = std::find(look_.keys.begin(), look_.keys.end(), key);
    RECT place{};
    if (found == look_.keys.end() ||
        !SendMessageW(bar_, TB_GETITEMRECT, static_cast<WPARAM>(found - look_.keys.begin()),
                      reinterpret_cast<LPARAM>(&place)))
        return std::nullopt;
    MapWindowPoints(bar_, nullptr, reinterpret_cast<POINT*>(&place), 2);
    return place;
}

} // namespace pixmo::com
