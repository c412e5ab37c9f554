#include "tests/com/behaviour/formwindow.h"

#include "faces/com/base/boundary.h"
#include "faces/com/base/widetext.h"
#include "faces/com/windows/keys.h"

#include <olectl.h>
#include <utility>

namespace pixmo::com::test {

namespace {

constexpr LONG FieldHeight = 24;
constexpr DISPID PrintJobBegin = 1;
constexpr DISPID PrintJobBeginEX = 2;

HWND makeField(HWND parent) {
    return CreateWindowExW(WS_EX_CLIENTEDGE, L"EDIT", L"",
                           WS_CHILD | WS_VISIBLE | WS_TABSTOP | ES_AUTOHSCROLL, 0, 0, 0, 0, parent, nullptr,
                           thisModule(), nullptr);
}

bool isTab(const MSG& message) {
    return message.message == WM_KEYDOWN && message.wParam == VK_TAB;
}

} // namespace

std::shared_ptr<FormWindow> FormWindow::create(SIZE size) {
    auto form = std::make_shared<FormWindow>();
    const DWORD style = WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN;
    if (!form->make({L"Pixmo.TestForm"}, {nullptr, style, 0, {40, 40, 140, 140}, L"Form"}) ||
        !form->makeParts(size))
        return nullptr;
    ShowWindow(form->handle(), SW_SHOW);
    SetForegroundWindow(form->handle());
    check(form->container_->verb(OLEIVERB_UIACTIVATE));
    return form;
}

bool FormWindow::makeParts(SIZE size) {
    before_ = makeField(handle());
    object_ = makeObject<ImageViewObject>(nullptr);
    container_ = std::make_unique<Container>(ComPtr<IUnknown>(&object_->identity()), FormRun, handle());
    container_->site.keyTaker = [this](const MSG& message) { return takesKey(message); };
    container_->events.handler = [this](DISPID event, DISPPARAMS& arguments) { onEvent(event, arguments); };
    container_->initialise();
    container_->activate();
    behind_ = makeField(handle());
    resizeControl(size);
    return before_ && behind_;
}

void FormWindow::close() {
    if (container_)
        container_->close();
    container_.reset();
    object_.reset();
    destroy();
}

HWND FormWindow::field(const std::string& name) const {
    if (name == "before")
        return before_;
    return name == "behind" ? behind_ : nullptr;
}

void FormWindow::resizeControl(SIZE size) {
    RECT outer = {0, 0, size.cx, size.cy + 2 * FieldHeight};
    AdjustWindowRect(&outer, WS_OVERLAPPEDWINDOW, FALSE);
    SetWindowPos(handle(), nullptr, 0, 0, outer.right - outer.left, outer.bottom - outer.top,
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    const auto place = [](HWND field, LONG top, LONG width) {
        MoveWindow(field, 0, top, width, FieldHeight, TRUE);
    };
    place(before_, 0, size.cx);
    place(behind_, FieldHeight + size.cy, size.cx);
    container_->move({0, FieldHeight, size.cx, FieldHeight + size.cy});
}

bool FormWindow::translate(MSG& message) {
    const bool isKey = message.message >= WM_KEYFIRST && message.message <= WM_KEYLAST;
    if (!container_ || !isKey)
        return false;
    if (isTab(message) && (message.hwnd == before_ || message.hwnd == behind_)) {
        const bool backward = isDown(VK_SHIFT);
        if ((message.hwnd == before_) != backward)
            container_->verb(OLEIVERB_UIACTIVATE);
        else
            SetFocus(message.hwnd == before_ ? behind_ : before_);
        return true;
    }
    const auto active = container_->site.active;
    return active && active->TranslateAccelerator(&message) == S_OK;
}

/// The control has no use for it.
bool FormWindow::takesKey(const MSG& message) {
    if (isTab(message)) {
        SetFocus(isDown(VK_SHIFT) ? before_ : behind_);
        return true;
    }
    if (message.message == WM_KEYDOWN || message.message == WM_SYSKEYDOWN)
        events_.push_back("HostKey " + std::to_string(message.wParam) + " " + std::to_string(shiftState()));
    return false;
}

void FormWindow::onEvent(DISPID event, DISPPARAMS& arguments) {
    // "Name(1, 2)"
    std::string line = container_->events.events.back();
    container_->events.events.clear();
    std::erase(line, ',');
    line.pop_back();
    line[line.find('(')] = ' ';
    const bool begins = event == PrintJobBegin || event == PrintJobBeginEX;
    if (begins)
        line.erase(line.rfind(' '));
    if (line.back() == ' ')
        line.pop_back();
    events_.push_back(line);
    if (event == DISPID_KEYDOWN && answers.takesKeys)
        *arguments.rgvarg[1].piVal = 0;
    if (begins && answers.cancelsPrinting)
        *arguments.rgvarg[0].pboolVal = VARIANT_TRUE;
}

std::vector<std::string> FormWindow::takeEvents() {
    return std::exchange(events_, {});
}

std::optional<LRESULT> FormWindow::onMessage(UINT message, WPARAM wParam, LPARAM) {
    switch (message) {
    case WM_COMMAND:
        // The control is not in use while another part of the form is.
        if (HIWORD(wParam) == EN_SETFOCUS && container_)
            container_->as<IOleInPlaceObject>()->UIDeactivate();
        return 0;
    case WM_ACTIVATE:
        if (LOWORD(wParam) == WA_INACTIVE)
            focused_ = GetFocus();
        return std::nullopt;
    case WM_SETFOCUS:
        if (IsChild(handle(), focused_))
            SetFocus(focused_);
        return 0;
    case WM_ERASEBKGND:
        return 1;
    default:
        return std::nullopt;
    }
}

} // namespace pixmo::com::test
