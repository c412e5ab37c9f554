#include "apps/windows/form/placedcontrol.h"

#include "faces/com/base/boundary.h"

namespace pixmo::form {

namespace {

/// HIMETRIC of pixels on the user's screen.
SIZEL himetricOf(const RECT& place) {
    const HDC screen = GetDC(nullptr);
    const SIZEL size{
        MulDiv(static_cast<int>(place.right - place.left), 2540, GetDeviceCaps(screen, LOGPIXELSX)),
        MulDiv(static_cast<int>(place.bottom - place.top), 2540, GetDeviceCaps(screen, LOGPIXELSY))};
    ReleaseDC(nullptr, screen);
    return size;
}

} // namespace

void PlacedControl::put(com::ComPtr<IUnknown> control, const RECT& place) {
    control_ = std::move(control);
    place_ = place;
    const auto object = as<IOleObject>();
    if (!object)
        throw com::errorOf(E_NOINTERFACE);
    com::check(object->SetClientSite(static_cast<ClientSite*>(site_.get())));
    if (const auto persistent = as<IPersistStreamInit>())
        com::check(persistent->InitNew());
    SIZEL size = himetricOf(place_);
    object->SetExtent(DVASPECT_CONTENT, &size);
    com::check(object->DoVerb(OLEIVERB_INPLACEACTIVATE, nullptr, static_cast<ClientSite*>(site_.get()), 0,
                              window_, &place_));
}

void PlacedControl::remove() {
    if (const auto object = as<IOleObject>()) {
        object->Close(OLECLOSE_NOSAVE);
        object->SetClientSite(nullptr);
    }
    active_.reset();
    control_.reset();
    if (site_)
        site_->forget();
}

void PlacedControl::move(const RECT& place) {
    place_ = place;
    SIZEL size = himetricOf(place_);
    if (const auto object = as<IOleObject>())
        object->SetExtent(DVASPECT_CONTENT, &size);
    if (const auto placed = as<IOleInPlaceObject>())
        placed->SetObjectRects(&place_, &place_);
}

void PlacedControl::focus() {
    if (const auto object = as<IOleObject>())
        object->DoVerb(OLEIVERB_UIACTIVATE, nullptr, static_cast<ClientSite*>(site_.get()), 0, window_,
                       &place_);
}

bool PlacedControl::translate(MSG& message) {
    const auto active = active_;
    const bool isKey = message.message >= WM_KEYFIRST && message.message <= WM_KEYLAST;
    HWND control = nullptr;
    return active && isKey && SUCCEEDED(active->GetWindow(&control)) &&
           (message.hwnd == control || IsChild(control, message.hwnd)) &&
           active->TranslateAccelerator(&message) == S_OK;
}

} // namespace pixmo::form
