#include "faces/com/face/controlface.h"

#include "codecs/pagecodecs.h"
#include "codecs/pagewriter.h"
#include "faces/com/base/facelink.h"
#include "faces/com/face/container.h"
#include "faces/com/face/controlpicture.h"
#include "faces/com/face/faceports.h"
#include "faces/com/ports/asyncreader.h"
#include "faces/com/windows/dialogs.h"
#include "faces/com/windows/facewindow.h"
#include "faces/com/windows/thumbnailhost.h"
#include "faces/com/windows/viewsurface.h"

#include <utility>

namespace pixmo::com {

class ControlFace::Parts {
public:
    explicit Parts(FaceHost& host)
        : link(std::make_shared<FaceLink>(host)), reader(std::make_shared<AsyncReader>()),
          surface(std::make_shared<ViewSurface>()), control(ImageView::create(ports())) {}

    /// The answers that need windows; the others are the system's.
    ControlPorts ports() const {
        ControlPorts ports = systemPorts(link);
        ports.reader = reader;
        ports.container = std::make_shared<Container>(link);
        ports.viewSurface = surface;
        ports.decoder = std::make_shared<PageCodecs>();
        ports.pageWriter = std::make_shared<PageFileWriter>();
        ports.dialogs = std::make_shared<Dialogs>(link);
        ports.thumbnailHost = std::make_shared<ThumbnailHost>(link);
        return ports;
    }

    const SharedFaceLink link;
    const std::shared_ptr<AsyncReader> reader;
    const std::shared_ptr<ViewSurface> surface;
    const std::shared_ptr<ImageView> control;
    std::shared_ptr<FaceWindow> window;
};

ControlFace::ControlFace(FaceHost& host) : parts_(std::make_unique<Parts>(host)) {}

ControlFace::~ControlFace() {
    parts_->link->end();
    destroyWindow();
    parts_->control->UserControl_Terminate();
}

std::shared_ptr<ImageView> ControlFace::control() const {
    return parts_->control;
}

HWND ControlFace::createWindow(HWND parent, const RECT& place) {
    if (const HWND present = window()) {
        SetParent(present, parent);
        setPlace(place, place);
        return present;
    }
    parts_->window = FaceWindow::create(parent, place, parts_->link, parts_->control);
    if (!parts_->window)
        return nullptr;
    parts_->surface->setWindow(parts_->window->page());
    parts_->window->applyLook();
    return window();
}

void ControlFace::destroyWindow() {
    parts_->surface->setWindow(nullptr);
    if (const auto ending = std::exchange(parts_->window, nullptr))
        ending->destroy();
}

HWND ControlFace::window() const {
    return parts_->window ? parts_->window->handle() : nullptr;
}

void ControlFace::setPlace(const RECT& place, const RECT& clip) {
    const HWND own = window();
    if (!own)
        return;
    MoveWindow(own, place.left, place.top, place.right - place.left, place.bottom - place.top, TRUE);
    RECT seen{};
    IntersectRect(&seen, &place, &clip);
    if (EqualRect(&seen, &place)) {
        SetWindowRgn(own, nullptr, TRUE);
        return;
    }
    OffsetRect(&seen, -place.left, -place.top);
    // The system owns the region from now on.
    SetWindowRgn(own, CreateRectRgnIndirect(&seen), TRUE);
}

void ControlFace::show(bool visible) {
    if (window())
        ShowWindow(window(), visible ? SW_SHOWNA : SW_HIDE);
}

void ControlFace::takeFocus() {
    if (window())
        parts_->window->takeFocus();
}

void ControlFace::draw(HDC target, const RECT& bounds) {
    drawControl(*control(), target, bounds);
}

bool ControlFace::translateKey(MSG& message) {
    const auto held = parts_->window;
    return held && held->translateKey(message);
}

void ControlFace::setStallTimeout(int milliseconds) {
    parts_->reader->limits().stallMilliseconds = milliseconds;
}

void ControlFace::refresh() {
    if (window())
        parts_->window->applyLook();
}

} // namespace pixmo::com
