#include "faces/com/windows/dialogwindow.h"

#include "faces/com/base/widetext.h"
#include "faces/com/windows/dpi.h"
#include "faces/com/windows/keys.h"

#include <algorithm>
#include <utility>

namespace pixmo::com {

namespace {

using Kind = DialogPart::Kind;

/// Until its content is measured.
constexpr short AnyLength = 100;

} // namespace

DialogWindow::DialogWindow(Dialog& dialog) : DialogWindow(dialog, dialog.describe()) {}

DialogWindow::DialogWindow(Dialog& dialog, DialogDescription description)
    : ModalDialog(toWide(description.title), AnyLength, AnyLength,
                  description.size ? WS_THICKFRAME | WS_MAXIMIZEBOX : 0),
      dialog_(dialog), description_(std::move(description)),
      connection_(dialog.Changed.connect([this] { mirror(); })) {
    add(description_.content);
}

DialogWindow::~DialogWindow() {
    dialog_.Changed.disconnect(connection_);
}

HWND DialogWindow::field(const std::string& name) const {
    for (const auto& [part, id] : ids_)
        if (part->name == name)
            return item(id);
    return nullptr;
}

std::string DialogWindow::nameOf(HWND control) const {
    const DialogPart* const part = partOf(static_cast<WORD>(GetDlgCtrlID(control)));
    return part ? part->name : std::string();
}

const DialogPart* DialogWindow::partOf(WORD id) const {
    const auto found = std::ranges::find_if(ids_, [id](const auto& each) { return each.second == id; });
    return found == ids_.end() ? nullptr : found->first;
}

void DialogWindow::onInit() {
    for (const auto& [part, id] : ids_)
        prepare(*part, id);
    if (const auto& size = description_.size) {
        RECT screen{};
        SystemParametersInfoW(SPI_GETWORKAREA, 0, &screen, 0);
        const auto length = [this](int32_t wanted, LONG whole) {
            return std::min<int>(scaled(wanted, dpi()), MulDiv(whole, 9, 10));
        };
        SetWindowPos(handle(), nullptr, 0, 0, length(size->first.width, screen.right - screen.left),
                     length(size->first.height, screen.bottom - screen.top), SWP_NOMOVE | SWP_NOZORDER);
    }
    mirror();
}

/// Who closes the window while a page is being fetched waits for it no longer.
bool DialogWindow::onCommand(WORD id, WORD code) {
    if (mirroring_)
        return true;
    if (const DialogPart* const part = partOf(id))
        return answerField(*part, id, code);
    if (id == IDCANCEL)
        act([this] { dialog_.cancel(); });
    return id == IDCANCEL || id == IDOK;
}

bool DialogWindow::answerField(const DialogPart& part, WORD id, WORD code) {
    if (part.clicked && code == BN_CLICKED)
        act(part.clicked);
    else if (part.changed && code == EN_CHANGE)
        act([&] { part.changed(toUtf8(text(id))); });
    else if (part.selectsAll && code == EN_SETFOCUS)
        PostMessageW(item(id), EM_SETSEL, 0, -1);
    else if (part.select && code == LBN_SELCHANGE)
        act([&] { selectEntries(part, id); });
    else
        return false;
    return true;
}

void DialogWindow::selectEntries(const DialogPart& part, WORD id) const {
    for (size_t entry = 0; entry < part.entries.size(); ++entry) {
        const bool selected = SendMessageW(item(id), LB_GETSEL, entry, 0) > 0;
        if (selected != part.isSelected(entry))
            part.select(entry, selected);
    }
}

bool DialogWindow::onKey(const MSG& message) {
    for (const DialogKey& key : description_.keys)
        if (static_cast<WPARAM>(key.keyCode) == message.wParam && key.shift == shiftState()) {
            act(key.pressed);
            return true;
        }
    // The system's fields of several lines do not know it.
    const DialogPart* const focused = partOf(static_cast<WORD>(GetDlgCtrlID(GetFocus())));
    if (message.wParam != 'A' || shiftState() != 2 || !focused || focused->kind != Kind::ScrolledText)
        return false;
    SendMessageW(GetFocus(), EM_SETSEL, 0, -1);
    return true;
}

void DialogWindow::act(const std::function<void()>& handler) {
    reportSelection();
    handler();
    mirror();
}

void DialogWindow::reportSelection() const {
    for (const auto& [id, shown] : shown_) {
        DWORD from = 0;
        DWORD to = 0;
        SendMessageW(item(id), EM_GETSEL, reinterpret_cast<WPARAM>(&from), reinterpret_cast<LPARAM>(&to));
        const std::wstring field = linesToWide(shown);
        const auto place = [&field](DWORD at) {
            std::wstring before = field.substr(0, at);
            std::erase(before, L'\r');
            return toUtf8(before).size();
        };
        partOf(id)->selected({place(from), place(to)});
    }
}

void DialogWindow::mirror() {
    if (!handle())
        return;
    if (!dialog_.isOpen())
        return close(IDOK);
    const bool before = std::exchange(mirroring_, true);
    for (const auto& [part, id] : ids_)
        mirror(*part, id);
    fitWindow();
    place();
    mirroring_ = before;
    takeFocus();
}

void DialogWindow::mirror(const DialogPart& part, WORD id) {
    const HWND control = item(id);
    if (part.isEnabled)
        EnableWindow(control, part.isEnabled());
    if (part.isChosen)
        SendMessageW(control, BM_SETCHECK, part.isChosen() ? BST_CHECKED : BST_UNCHECKED, 0);
    if (part.kind == Kind::ScrolledText) {
        if (std::string now = part.shown(); now != shown_[id] || now.empty()) {
            setText(id, linesToWide(now));
            shown_[id] = std::move(now);
        }
        showSelection(part, id);
    } else if (part.shown && text(id) != toWide(part.shown())) {
        setText(id, toWide(part.shown()));
    }
}

void DialogWindow::showSelection(const DialogPart& part, WORD id) const {
    const std::string& shown = shown_.at(id);
    const auto place = [&shown](size_t at) { return linesToWide(shown.substr(0, at)).size(); };
    const TextRange range = part.selection();
    SendMessageW(item(id), EM_SETSEL, place(range.begin), static_cast<LPARAM>(place(range.end)));
    SendMessageW(item(id), EM_SCROLLCARET, 0, 0);
}

/// A disabled button keeps no focus.
void DialogWindow::takeFocus() {
    const std::string name = dialog_.takeFocus();
    HWND wanted = name.empty() ? nullptr : field(name);
    if (!wanted && GetFocus() && IsChild(handle(), GetFocus()) && !IsWindowEnabled(GetFocus()))
        wanted = item(IDOK);
    if (wanted && IsWindowVisible(handle()))
        SendMessageW(handle(), WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(wanted), TRUE);
    else if (wanted)
        SetFocus(wanted);
    const DialogPart* const part = wanted ? partOf(static_cast<WORD>(GetDlgCtrlID(wanted))) : nullptr;
    if (part && part->kind == Kind::Text)
        SendMessageW(wanted, EM_SETSEL, 0, -1);
}

std::optional<INT_PTR> DialogWindow::onMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_GETMINMAXINFO:
        if (description_.size)
            reinterpret_cast<MINMAXINFO*>(lParam)->ptMinTrackSize = {
                scaled(description_.size->least.width, dpi()),
                scaled(description_.size->least.height, dpi())};
        return TRUE;
    case WM_DRAWITEM:
        if (sheet_)
            sheet_->paint(*reinterpret_cast<const DRAWITEMSTRUCT*>(lParam), font());
        return TRUE;
    case WM_CTLCOLORSTATIC: {
        const DialogPart* const part =
            partOf(static_cast<WORD>(GetDlgCtrlID(reinterpret_cast<HWND>(lParam))));
        if (!part || (part->kind != Kind::ScrolledText && part->kind != Kind::Lines))
            return std::nullopt;
        // What is read, not edited, lies on the window itself, a long text on a page of its own.
        const bool isPage = part->kind == Kind::ScrolledText;
        SetTextColor(reinterpret_cast<HDC>(wParam), GetSysColor(isPage ? COLOR_WINDOWTEXT : COLOR_BTNTEXT));
        SetBkColor(reinterpret_cast<HDC>(wParam), GetSysColor(isPage ? COLOR_WINDOW : COLOR_BTNFACE));
        return reinterpret_cast<INT_PTR>(GetSysColorBrush(isPage ? COLOR_WINDOW : COLOR_BTNFACE));
    }
    default:
        return std::nullopt;
    }
}

void DialogWindow::onClose() {
    if (description_.size && description_.size->keep && !IsZoomed(handle())) {
        RECT place{};
        GetWindowRect(handle(), &place);
        const auto length = [this](LONG pixels) { return MulDiv(pixels, UsualDpi, dpi()); };
        description_.size->keep({length(place.right - place.left), length(place.bottom - place.top)});
    }
    if (dialog_.isOpen())
        dialog_.cancel();
    sheet_.reset();
}

} // namespace pixmo::com
