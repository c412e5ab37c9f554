#include "faces/com/face/controlface.h"
#include "faces/scripted/scriptedcontrol.h"
namespace pixmo::com {
namespace {
class HostContainer : public Container {
public:
    explicit HostContainer(FaceHost& host) : host_(&host) {}
    bool userMode() const override { return !host_ || host_->userMode(); }
    Colour ambientBackColor() const override { return host_ ? host_->ambientBackColor() : Colour{}; }
    Font ambientFont() const override { return host_ ? host_->ambientFont() : Font{}; }
    void startProgram(const std::string&) override {}
    void PropertyChanged(const std::string& name) override { if (host_) host_->propertyChanged(name); }
    FaceHost* host_;
};
}
class ControlFace::Parts {
public:
    explicit Parts(FaceHost& h) : host(h) {
        container = std::make_shared<HostContainer>(h);
        ControlPorts ports = scripts.ports();
        ports.container = container;
        control = ImageView::create(ports);
    }
    FaceHost& host;
    scripted::ScriptedControl scripts;
    std::shared_ptr<HostContainer> container;
    std::shared_ptr<ImageView> control;
    HWND window = nullptr;
};
ControlFace::ControlFace(FaceHost& host) : parts_(std::make_unique<Parts>(host)) {}
ControlFace::~ControlFace() { destroyWindow(); parts_->container->host_ = nullptr; parts_->control->UserControl_Terminate(); }
std::shared_ptr<ImageView> ControlFace::control() const { return parts_->control; }
HWND ControlFace::createWindow(HWND parent, const RECT& r) {
    if (parts_->window) { SetParent(parts_->window, parent); return parts_->window; }
    parts_->window = CreateWindowExW(0, L"STATIC", L"viewer", WS_CHILD | WS_TABSTOP, r.left, r.top, r.right - r.left, r.bottom - r.top, parent, nullptr, nullptr, nullptr);
    return parts_->window;
}
void ControlFace::destroyWindow() { if (parts_->window) DestroyWindow(parts_->window); parts_->window = nullptr; }
HWND ControlFace::window() const { return parts_->window; }
void ControlFace::setPlace(const RECT& r, const RECT&) { if (parts_->window) MoveWindow(parts_->window, r.left, r.top, r.right - r.left, r.bottom - r.top, TRUE); }
void ControlFace::show(bool v) { if (parts_->window) ShowWindow(parts_->window, v ? SW_SHOWNOACTIVATE : SW_HIDE); }
void ControlFace::takeFocus() { SetFocus(parts_->window); }
void ControlFace::draw(HDC dc, const RECT& r) { FillRect(dc, &r, static_cast<HBRUSH>(GetStockObject(GRAY_BRUSH))); MoveToEx(dc, r.left, r.top, nullptr); LineTo(dc, r.right, r.bottom); }
bool ControlFace::translateKey(MSG& m) {
    if (m.message != WM_KEYDOWN) return false;
    int16_t k = static_cast<int16_t>(m.wParam), s = 0;
    return parts_->control->UserControl_KeyDown(k, s);
}
void ControlFace::refresh() {}
}
