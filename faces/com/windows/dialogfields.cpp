#include "faces/com/base/widetext.h"
#include "faces/com/windows/dialogwindow.h"
#include "faces/com/windows/dpi.h"
#include "faces/com/windows/fonts.h"

#include <algorithm>
#include <commctrl.h>
#include <limits>

namespace pixmo::com {

namespace {

using Kind = DialogPart::Kind;

constexpr WORD FirstId = 100;
constexpr WORD ArrowsId = 1000; ///< those of a number, behind the number's own id
constexpr DialogTemplate::Place Somewhere = {0, 0, 10, 10};
constexpr const wchar_t* FilterProperty = L"Pixmo.Filter";

std::wstring withoutMnemonic(std::wstring text) {
    std::erase(text, L'&');
    return text;
}

} // namespace

/// What is not said by a label before a field or by its own text is said by a label that takes no room.
void DialogWindow::add(DialogPart& part) {
    if (part.kind == Kind::Buttons)
        std::stable_partition(part.parts.begin(), part.parts.end(), [](const DialogPart& each) {
            return each.meaning == DialogPart::Meaning::None;
        });
    switch (part.kind) {
    case Kind::Row:
    case Kind::Column:
    case Kind::Buttons:
        break;
    case Kind::Frame:
        // What lies in a frame, and between, is painted by the window beneath.
        add(part, L"BUTTON", BS_GROUPBOX | WS_GROUP, WS_EX_TRANSPARENT);
        break;
    case Kind::Label:
    case Kind::Heading:
        addLabel(part);
        break;
    case Kind::Lines:
        add(part, part.isCopied ? L"EDIT" : L"STATIC",
            part.isCopied ? ES_MULTILINE | ES_READONLY | ES_AUTOVSCROLL : SS_NOPREFIX);
        break;
    case Kind::Icon:
        add(part, L"STATIC", SS_ICON | SS_CENTERIMAGE);
        break;
    case Kind::Text:
        addText(part, ES_AUTOHSCROLL);
        break;
    case Kind::Number:
        addText(part, ES_AUTOHSCROLL | ES_NUMBER);
        layout().add(UPDOWN_CLASSW, {}, static_cast<WORD>(idOf(part) + ArrowsId), Somewhere,
                     UDS_SETBUDDYINT | UDS_AUTOBUDDY | UDS_ALIGNRIGHT | UDS_ARROWKEYS | UDS_NOTHOUSANDS);
        break;
    case Kind::Option:
        add(part, L"BUTTON",
            static_cast<DWORD>(BS_AUTORADIOBUTTON | (wasOption_ ? 0 : WS_GROUP | WS_TABSTOP)));
        break;
    case Kind::List:
        add(part, L"LISTBOX",
            WS_TABSTOP | WS_GROUP | WS_VSCROLL | LBS_NOTIFY | LBS_EXTENDEDSEL | LBS_NOINTEGRALHEIGHT,
            WS_EX_CLIENTEDGE);
        break;
    case Kind::Button:
        add(part, L"BUTTON",
            static_cast<DWORD>(WS_TABSTOP | WS_GROUP | (part.isDefault ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON)));
        break;
    case Kind::ScrolledText:
        addText(part, ES_MULTILINE | ES_READONLY | ES_NOHIDESEL | ES_AUTOVSCROLL | ES_AUTOHSCROLL |
                          WS_VSCROLL | WS_HSCROLL);
        break;
    case Kind::Sheet:
        add(part, L"STATIC", SS_OWNERDRAW);
        break;
    }
    wasOption_ = part.kind == Kind::Option || (wasOption_ && DialogLayout::isGroup(part));
    for (DialogPart& each : part.parts)
        add(each);
}

WORD DialogWindow::add(const DialogPart& part, const wchar_t* className, DWORD style, DWORD exStyle) {
    const WORD id = part.isDefault ? WORD{IDOK} : static_cast<WORD>(FirstId + ids_.size());
    ids_[&part] = id;
    layout().add(className, toWide(part.text), id, Somewhere, style, exStyle);
    return id;
}

void DialogWindow::addLabel(const DialogPart& part) {
    DWORD style = SS_CENTERIMAGE | (part.isCentred ? SS_CENTER : SS_LEFT);
    if (part.isCopied || part.shown || part.kind == Kind::Heading)
        style |= SS_NOPREFIX;
    if (part.isCut)
        style |= part.isCopied ? SS_PATHELLIPSIS : SS_ENDELLIPSIS;
    add(part, L"STATIC", style);
}

void DialogWindow::addText(const DialogPart& part, DWORD style) {
    if (!part.spoken.empty())
        layout().addLabel(toWide(part.spoken), 0, {0, 0, 0, 0});
    add(part, L"EDIT", WS_TABSTOP | WS_GROUP | style, WS_EX_CLIENTEDGE);
}

void DialogWindow::prepare(const DialogPart& part, WORD id) {
    const HWND control = item(id);
    switch (part.kind) {
    case Kind::Heading:
        headingFont_ = makeBold(font(), DialogHeadingScale);
        setFont(id, headingFont_.get());
        break;
    case Kind::Icon:
        icon_ = makeProgramIcon(scaled(DialogIconSize, dpi()));
        SendMessageW(control, STM_SETICON, reinterpret_cast<WPARAM>(icon_.get()), 0);
        break;
    case Kind::Text:
        SendMessageW(control, EM_SETLIMITTEXT, 0, 0);
        filterKeys(part, id);
        break;
    case Kind::Number:
        SendMessageW(item(static_cast<WORD>(id + ArrowsId)), UDM_SETRANGE32, 1, part.most);
        break;
    case Kind::List:
        fillList(part, id);
        break;
    case Kind::ScrolledText:
        fixedFont_ = makeFixedFont(dpi());
        setFont(id, fixedFont_.get());
        SendMessageW(control, EM_SETLIMITTEXT, 0, 0);
        break;
    case Kind::Sheet:
        sheet_ = std::make_unique<SheetView>(control, part.canvas);
        break;
    default:
        break;
    }
}

void DialogWindow::fillList(const DialogPart& part, WORD id) const {
    const HWND list = item(id);
    SendMessageW(list, WM_SETREDRAW, FALSE, 0);
    for (size_t entry = 0; entry < part.entries.size(); ++entry) {
        SendMessageW(list, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(toWide(part.entries[entry]).c_str()));
        if (part.isSelected(entry))
            SendMessageW(list, LB_SETSEL, TRUE, static_cast<LPARAM>(entry));
    }
    SendMessageW(list, WM_SETREDRAW, TRUE, 0);
}

void DialogWindow::filterKeys(const DialogPart& part, WORD id) {
    if (!part.keyPress)
        return;
    const HWND control = item(id);
    const auto usual = reinterpret_cast<WNDPROC>(GetWindowLongPtrW(control, GWLP_WNDPROC));
    filters_.push_back(std::make_unique<Filter>(Filter{usual, part.keyPress}));
    SetPropW(control, FilterProperty, filters_.back().get());
    SetWindowLongPtrW(control, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(filteredProcedure));
}

/// What is pasted enters as it is.
LRESULT CALLBACK DialogWindow::filteredProcedure(HWND handle, UINT message, WPARAM wParam,
                                                 LPARAM lParam) noexcept {
    const auto* const filter = static_cast<const Filter*>(GetPropW(handle, FilterProperty));
    // Ctrl+A to Ctrl+Z arrive as control characters: Ctrl+V must paste.
    if (message == WM_CHAR && wParam >= L' ') {
        constexpr WPARAM Most = std::numeric_limits<int16_t>::max();
        if (filter->keyPress(static_cast<int16_t>(std::min(wParam, Most))) == 0)
            return 0;
    }
    if (message == WM_NCDESTROY)
        RemovePropW(handle, FilterProperty);
    return CallWindowProcW(filter->usual, handle, message, wParam, lParam);
}

SIZE DialogWindow::sizeOf(const std::wstring& text, HFONT font, LONG width) {
    const ScreenDc screen;
    const Selected selected(screen.get(), font);
    RECT place = {0, 0, width, 0};
    DrawTextW(screen.get(), text.c_str(), -1, &place,
              static_cast<UINT>(DT_CALCRECT | DT_NOPREFIX | (width > 0 ? DT_WORDBREAK : 0)));
    return {place.right, place.bottom};
}

SIZE DialogWindow::fieldSize(const DialogPart& part) const {
    constexpr short Character = 4; // dialog units
    const auto units = [this](int width, int height) {
        const RECT place = pixels({0, 0, static_cast<short>(width), static_cast<short>(height)});
        return SIZE{place.right, place.bottom};
    };
    const HFONT written = part.kind == Kind::Heading ? headingFont_.get() : font();
    const LONG width = units(part.width * Character, 0).cx;
    const SIZE text =
        sizeOf(withoutMnemonic(toWide(part.textNow())), written, part.kind == Kind::Lines ? width : 0);
    switch (part.kind) {
    case Kind::Label:
        return {part.isCut ? units(60, 0).cx : std::max(width, text.cx + units(1, 0).cx),
                std::max(text.cy, units(0, 8).cy)};
    case Kind::Heading:
        return {text.cx, text.cy};
    case Kind::Lines:
        return {width, text.cy};
    case Kind::Icon:
        return {scaled(DialogIconSize, dpi()) + units(Character, 0).cx, scaled(DialogIconSize, dpi())};
    case Kind::Text:
    case Kind::Number:
        return {std::max(width, units(26, 0).cx), units(0, 13).cy};
    case Kind::Option:
        return {text.cx + units(14, 0).cx, units(0, 10).cy};
    case Kind::List:
        return units(80, 70);
    case Kind::Button:
        return {std::max(units(50, 0).cx, text.cx + units(10, 0).cx), units(0, 14).cy};
    default:
        return units(80, 40);
    }
}

DialogLayout DialogWindow::layOut() const {
    const RECT unit = pixels({4, 3, 4, 9}); // left 4, top 3, right 8, bottom 12
    DialogLayout layout;
    layout.fieldSize = [this](const DialogPart& part) { return fieldSize(part); };
    layout.put = [this](const DialogPart& part, const RECT* place) { put(part, place); };
    layout.measures = {unit.left,  unit.top,    description_.size ? unit.left : unit.bottom,
                       unit.right, unit.bottom, unit.right};
    return layout;
}

void DialogWindow::put(const DialogPart& part, const RECT* place) const {
    const WORD id = idOf(part);
    for (const WORD each : {id, static_cast<WORD>(id + ArrowsId)})
        if (const HWND control = item(each))
            ShowWindow(control, place ? SW_SHOWNA : SW_HIDE);
    if (!place)
        return;
    const HWND control = item(id);
    RECT now{};
    GetWindowRect(control, &now);
    MapWindowPoints(nullptr, handle(), reinterpret_cast<POINT*>(&now), 2);
    LONG right = place->right;
    if (const HWND arrows = item(static_cast<WORD>(id + ArrowsId))) {
        const LONG width = GetSystemMetrics(SM_CXVSCROLL);
        right -= width;
        MoveWindow(arrows, right, place->top, width, place->bottom - place->top, TRUE);
    }
    if (EqualRect(&now, place))
        return;
    MoveWindow(control, place->left, place->top, right - place->left, place->bottom - place->top, TRUE);
    if (part.kind == Kind::Sheet && sheet_)
        sheet_->resized();
}

/// A window that the user cannot resize is as large as its content.
void DialogWindow::fitWindow() const {
    if (description_.size)
        return;
    constexpr int TitleButtons = 60; // device-independent pixels
    const RECT margins = pixels({7, 7, 7, 7});
    SIZE size = layOut().least(description_.content);
    const SIZE title = sizeOf(toWide(description_.title), font(), 0);
    RECT place = {0, 0, std::max(size.cx + margins.right, title.cx + scaled(TitleButtons, dpi())),
                  size.cy + margins.bottom};
    AdjustWindowRectEx(&place, static_cast<DWORD>(GetWindowLongPtrW(handle(), GWL_STYLE)), FALSE,
                       static_cast<DWORD>(GetWindowLongPtrW(handle(), GWL_EXSTYLE)));
    RECT now{};
    GetWindowRect(handle(), &now);
    const SIZE wanted = {place.right - place.left, place.bottom - place.top};
    if (now.right - now.left != wanted.cx || now.bottom - now.top != wanted.cy)
        SetWindowPos(handle(), nullptr, 0, 0, wanted.cx, wanted.cy,
                     SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void DialogWindow::place() {
    const RECT margins = pixels({7, 7, 0, 0});
    RECT area{};
    GetClientRect(handle(), &area);
    InflateRect(&area, -margins.left, -margins.top);
    layOut().place(description_.content, area);
}

void DialogWindow::onResize(SIZE) {
    place();
    InvalidateRect(handle(), nullptr, TRUE);
}

} // namespace pixmo::com
