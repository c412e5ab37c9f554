#include "faces/com/control/controlcontext.h"

#include "faces/com/base/boundary.h"
#include "faces/com/base/bstr.h"
#include "faces/com/control/ambientnames.h"
#include "faces/com/control/identifiers.h"
#include "faces/com/control/measures.h"

#include <utility>

namespace pixmo::com {

namespace {

/// The size of a control that nobody has given one, in pixels at 96 dpi.
constexpr SIZEL UsualPixels{400, 500};

} // namespace

/// While it lives nothing that happens to the properties is the host's or the user's doing.
class ControlContext::Starting {
public:
    explicit Starting(ControlContext& context) : context_(context) { ++context_.starting_; }
    ~Starting() { --context_.starting_; }
    Starting(const Starting&) = delete;
    Starting& operator=(const Starting&) = delete;

private:
    ControlContext& context_;
};

ControlContext::ControlContext()
    : dispatcher_(IID_IImageView), inPlace_(*this, host_),
      fontLink_([this](const Font& font) { letFont(font); }) {}

ControlContext::~ControlContext() {
    end();
}

void ControlContext::attach(IUnknown& known, IConnectionPointContainer& connections) {
    known_ = &known;
    sinks_ = std::make_unique<EventSinks>(known, connections, [this] { return maySpeak(); });
}

void ControlContext::end() {
    if (std::exchange(ended_, true))
        return;
    inPlace_.deactivate();
    fontLink_.release();
    face_.reset();
    observers_.release();
    if (sinks_)
        for (ConnectionPoint* point : sinks_->points())
            point->disconnect();
    host_.setClientSite(nullptr);
    host_.setObjectSite(nullptr);
}

SIZEL ControlContext::usualExtent() {
    constexpr int usualResolution = 96;
    return {toHimetric(UsualPixels.cx, usualResolution), toHimetric(UsualPixels.cy, usualResolution)};
}

/// Events go to the host unless it has frozen them, designs, or has taken the control out of its place; a
/// control that never had a place belongs to a program that listens without one.
bool ControlContext::maySpeak() const {
    return frozen_ == 0 && starting_ == 0 && !closed_ && !ended_ && (!wasPlaced_ || host_.clientSite()) &&
           host_.userMode();
}

void ControlContext::makeFace() {
    if (face_)
        return;
    const Starting starting(*this);
    face_ = std::make_unique<ControlFace>(*this);
    sinks_->follow(face_->control()->events());
}

std::shared_ptr<ImageView> ControlContext::control() {
    return readyFace().control();
}

ControlFace& ControlContext::readyFace() {
    if (!initialised_) {
        const bool dirty = dirty_;
        initialise();
        dirty_ = dirty;
    }
    return *face_;
}

void ControlContext::initialise() {
    makeFace();
    dirty_ = true;
    // What a host has made of the control before it gives it a place stays.
    if (initialised_)
        return;
    const Starting starting(*this);
    initialised_ = true;
    face_->control()->UserControl_InitProperties();
}

void ControlContext::read(const PropertyBag& bag) {
    makeFace();
    const Starting starting(*this);
    initialised_ = true;
    face_->control()->UserControl_ReadProperties(bag);
    face_->refresh();
    dirty_ = false;
}

void ControlContext::write(PropertyBag& bag) {
    control()->UserControl_WriteProperties(bag);
}

void ControlContext::designChanged() {
    if (starting_ == 0 && !host_.userMode())
        dirty_ = true;
}

void ControlContext::setExtent(const SIZEL& extent) {
    if (extent.cx == extent_.cx && extent.cy == extent_.cy)
        return;
    extent_ = extent;
    designChanged();
    pictureChanged();
}

void ControlContext::setClientSite(ComPtr<IOleClientSite> site) {
    if (site) {
        wasPlaced_ = true;
        closed_ = false;
    } else {
        inPlace_.deactivate();
    }
    host_.setClientSite(std::move(site));
}

void ControlContext::close() {
    inPlace_.deactivate();
    closed_ = true;
    if (initialised_)
        control()->Clear();
    observers_.closed();
}

void ControlContext::freezeEvents(bool freeze) {
    if (freeze)
        ++frozen_;
    else if (frozen_ > 0)
        --frozen_;
}

void ControlContext::ambientChanged(DISPID id) {
    if (!face_)
        return;
    const auto held = control();
    for (const AmbientName& ambient : ambientNames())
        if (id == ambient.id || id == DISPID_UNKNOWN)
            held->UserControl_AmbientChanged(ambient.name);
    face_->refresh();
    pictureChanged();
}

void ControlContext::pictureChanged() {
    if (const auto data = knownAs<IDataObject>())
        observers_.pictureChanged(*data);
}

void ControlContext::letFont(const Font& font) {
    control()->setProperty("Font", font);
    face_->refresh();
}

void ControlContext::propertyChanged(const std::string& name) {
    if (starting_ > 0 || ended_)
        return;
    designChanged();
    DISPID id = DISPID_UNKNOWN;
    std::wstring wide = toWide(name);
    LPOLESTR names = wide.data();
    if (FAILED(dispatcher_.idsOfNames(IID_NULL, &names, 1, &id)))
        id = DISPID_UNKNOWN;
    sinks_->propertyChanged(id);
    pictureChanged();
}

HWND ControlContext::ownerWindow() const {
    const HWND own = face_ ? face_->window() : nullptr;
    const HWND known = own ? own : host_.window();
    return known ? GetAncestor(known, GA_ROOT) : nullptr;
}

bool ControlContext::mayWriteFiles() const {
    return safety_.mayReachFiles(static_cast<bool>(host_.clientSite()), host_.isPage());
}

HWND ControlContext::createWindow(HWND parent, const RECT& place) {
    return readyFace().createWindow(parent, place);
}

void ControlContext::destroyWindow() {
    if (face_)
        face_->destroyWindow();
}

void ControlContext::setPlace(const RECT& place, const RECT& clip) {
    if (face_)
        face_->setPlace(place, clip);
}

void ControlContext::showWindow(bool visible) {
    if (face_)
        face_->show(visible);
}

void ControlContext::takeFocus() {
    if (face_)
        face_->takeFocus();
}

bool ControlContext::hasFocus() const {
    const HWND own = face_ ? face_->window() : nullptr;
    const HWND focused = GetFocus();
    return own && focused && (own == focused || IsChild(own, focused));
}

} // namespace pixmo::com
