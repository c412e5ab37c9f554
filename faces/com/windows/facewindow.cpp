#include "faces/com/windows/facewindow.h"

#include "core/base/partnames.h"
#include "faces/com/windows/colours.h"
#include "faces/com/windows/dpi.h"
#include "faces/com/windows/fonts.h"
#include "faces/com/windows/keys.h"
#include "faces/com/windows/popupmenu.h"

#include <utility>

namespace pixmo::com {

namespace {

RECT rectOf(const Rectangle& box, int border) {
    return {box.left + border, box.top + border, box.left + box.width + border,
            box.top + box.height + border};
}

} // namespace

std::shared_ptr<FaceWindow> FaceWindow::create(HWND parent, const RECT& place, const SharedFaceLink& link,
                                               const std::shared_ptr<ImageView>& control) {
    auto window = std::make_shared<FaceWindow>();
    window->link_ = link;
    window->control_ = control;
    const DWORD style = WS_CHILD | WS_CLIPCHILDREN | WS_CLIPSIBLINGS;
    if (!window->make({L"Pixmo.ImageView"}, {parent, style, WS_EX_CONTROLPARENT, place, L"Pixmo"}) ||
        !window->makeChildren())
        return nullptr;
    window->connect();
    return window;
}

/// In a host that is read from the right the bars are mirrored. The page never is, nor what it lies in, which
/// would hand a mirrored window's layout on to it.
bool FaceWindow::takeLayout() const {
    const LONG_PTR exStyle = GetWindowLongPtrW(handle(), GWL_EXSTYLE);
    SetWindowLongPtrW(handle(), GWL_EXSTYLE, exStyle & ~LONG_PTR{WS_EX_LAYOUTRTL});
    return (exStyle & WS_EX_LAYOUTRTL) != 0 || (link_->host() && link_->host()->rightToLeft());
}

bool FaceWindow::makeChildren() {
    const bool mirrored = takeLayout();
    toolbar_ = std::make_unique<CommandToolbar>(handle(), part_name::PageCommands, mirrored,
                                                [this](const std::string& key) {
                                                    const auto control = control_;
                                                    control->tlbImage_ButtonClick(key);
                                                    // The system shows a button of a group pressed by itself.
                                                    if (handle())
                                                        mirror();
                                                });
    page_ = PageView::create(handle(), control_);
    debug_ = std::make_unique<DebugPane>(handle(), control_);
    status_ = std::make_unique<StatusRow>(handle(), mirrored);
    if (page_)
        page_->setActivated([this] { activated(); });
    return page_ != nullptr;
}

void FaceWindow::connect() {
    const std::weak_ptr<FaceWindow> weak = std::static_pointer_cast<FaceWindow>(shared_from_this());
    const auto whileThere = [weak](auto act) {
        return [weak, act](auto&&... arguments) {
            const auto window = weak.lock();
            if (window && window->handle() && window->link_->host())
                act(*window, arguments...);
        };
    };
    control_->InterfaceChanged.connect(whileThere([](FaceWindow& window) { window.mirror(); }));
    control_->lvrImage().Changed.connect(whileThere([](FaceWindow& window) {
        if (window.status_->mirrorZoom(*window.control_))
            window.layOutChildren(false);
    }));
    link_->PropertyChanged.connect(
        whileThere([](FaceWindow& window, const std::string& name) { window.applyProperty(name); }));
    watcher_ =
        LookWatcher::create(whileThere([](FaceWindow& window, UINT message, WPARAM wParam, LPARAM lParam) {
            tellControls(window.handle(), message, wParam, lParam);
            window.applyLook();
        }));
}

void FaceWindow::applyProperty(const std::string& name) {
    if (name == "BackColor" || name == "ForeColor" || name == "Font" || name == "BorderStyle" ||
        name == "Enabled")
        applyLook();
}

Colour FaceWindow::colourProperty(std::string_view name) const {
    return std::get<Colour>(control_->property(name));
}

int FaceWindow::border() const {
    return std::get<int16_t>(control_->property("BorderStyle")) == 0 ? 0 : 1;
}

void FaceWindow::applyLook() {
    dpi_ = dpiOf(handle());
    auto font = std::get<Font>(control_->property("Font"));
    if (font.Name.empty() && link_->host())
        font = link_->host()->ambientFont();
    const FontHandle former = std::exchange(font_, makeFont(font, dpi_));
    const Colour back = colourProperty("BackColor");
    back_.reset(CreateSolidBrush(toColorRef(back)));
    // The shade around the page is not the one of the buttons, unless the host has named a colour.
    control_->lvrImage().setBackground(
        rgbOf(back == ButtonFace ? GetSysColor(COLOR_APPWORKSPACE) : toColorRef(back)));
    toolbar_->renew(font_.get(), back_.get());
    status_->setFont(font_.get(), dpi_);
    page_->setFont(font_.get(), dpi_);
    debug_->setResolution(dpi_);
    EnableWindow(handle(), std::get<bool>(control_->property("Enabled")));
    control_->lvrImage().resize();
    mirror();
    RedrawWindow(handle(), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
}

void FaceWindow::mirror() {
    toolbar_->mirror(control_->tlbImage());
    status_->mirror(*control_);
    page_->refresh();
    debug_->mirror(*control_);
    layOutChildren(false);
}

void FaceWindow::layOutChildren(bool resized) {
    const SIZE size = clientSize();
    const int inset = border();
    LayoutMeasures measures;
    measures.width = size.cx - 2 * inset;
    measures.height = size.cy - 2 * inset;
    measures.toolbarHeight =
        control_->commands().toolbarShown ? toolbar_->heightFor(std::max(0, measures.width)) : 0;
    measures.debugShown = control_->commands().debugShown;
    status_->measure(measures);
    const ControlLayout layout = layOut(measures);
    toolbar_->place(rectOf(layout.toolbar, inset));
    ShowWindow(toolbar_->handle(), layout.toolbar.height > 0 ? SW_SHOWNA : SW_HIDE);
    status_->place(layout, {inset, inset});
    const RECT debug = rectOf(layout.debug, inset);
    MoveWindow(debug_->handle(), debug.left, debug.top, layout.debug.width, layout.debug.height, TRUE);
    const RECT view = rectOf(layout.view, inset);
    MoveWindow(page_->handle(), view.left, view.top, layout.view.width, layout.view.height, TRUE);
    const RECT before = std::exchange(viewPlace_, view);
    if (resized || !EqualRect(&before, &view))
        std::shared_ptr<ImageView>(control_)->UserControl_Resize();
}

void FaceWindow::takeFocus() {
    takingFocus_ = true;
    SetFocus(page_->handle());
    takingFocus_ = false;
}

void FaceWindow::activated() {
    if (!takingFocus_ && link_->host())
        link_->host()->activated();
}

bool FaceWindow::translateKey(MSG& message) {
    if (!handle() || message.message != WM_KEYDOWN)
        return false;
    const bool inDebug = message.hwnd == debug_->handle();
    if (message.hwnd != page_->handle() && !inDebug)
        return false;
    if (message.wParam == VK_TAB)
        return passFocus(inDebug);
    const bool copies = inDebug && (message.wParam == 'C' || message.wParam == 'A') && shiftState() == 2;
    if (!copies && !control_->commands().isKey(static_cast<int16_t>(message.wParam), shiftState()))
        return false;
    TranslateMessage(&message);
    DispatchMessageW(&message);
    return true;
}

/// By Tab from the page to the trace, back by Shift+Tab; out of the control it is the host's.
bool FaceWindow::passFocus(bool inDebug) {
    const bool backward = shiftState() == 1;
    if ((shiftState() != 0 && !backward) || backward != inDebug || !control_->commands().debugShown)
        return false;
    SetFocus(inDebug ? page_->handle() : debug_->handle());
    return true;
}

void FaceWindow::showToolbarMenu(LPARAM lParam) {
    const auto control = control_;
    const POINT place = menuPlace(lParam, handle(), {0, 0});
    const std::string key = popUp(control->tlbImage_MouseDown(), place, handle());
    if (!key.empty())
        control->runCommand(key);
}

void FaceWindow::paintBack(HDC dc) const {
    RECT all{};
    GetClientRect(handle(), &all);
    FillRect(dc, &all, back_.get());
    if (border() > 0)
        FrameRect(dc, &all, GetSysColorBrush(COLOR_WINDOWFRAME));
}

std::optional<LRESULT> FaceWindow::colourOf(HDC dc, HWND child) const {
    if (child == debug_->handle())
        return std::nullopt;
    SetTextColor(dc, toColorRef(colourProperty("ForeColor")));
    SetBkColor(dc, toColorRef(colourProperty("BackColor")));
    return reinterpret_cast<LRESULT>(back_.get());
}

std::optional<LRESULT> FaceWindow::onMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    if (!status_)
        return std::nullopt;
    if (const auto result = toolbar_->onParentMessage(message, wParam, lParam))
        return result;
    switch (message) {
    case WM_SIZE:
        // A host may have brought the window to another screen without a word.
        if (dpi_ != dpiOf(handle()))
            applyLook();
        layOutChildren(true);
        return 0;
    case WM_ERASEBKGND:
        paintBack(reinterpret_cast<HDC>(wParam));
        return 1;
    case WM_CTLCOLORSTATIC:
        return colourOf(reinterpret_cast<HDC>(wParam), reinterpret_cast<HWND>(lParam));
    case WM_SETFOCUS:
        SetFocus(page_->handle());
        return 0;
    case WM_MOUSEACTIVATE:
        activated();
        return std::nullopt;
    case WM_MOUSEWHEEL:
        return SendMessageW(page_->handle(), message, wParam, lParam);
    case WM_CONTEXTMENU:
        if (reinterpret_cast<HWND>(wParam) == toolbar_->handle())
            showToolbarMenu(lParam);
        return 0;
    case DpiChanged: // of a host that hands it on
    case DpiChangedAfterParent:
        applyLook();
        return 0;
    default:
        return std::nullopt;
    }
}

} // namespace pixmo::com
