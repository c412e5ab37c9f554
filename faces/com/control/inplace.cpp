#include "faces/com/control/inplace.h"

#include <utility>

namespace pixmo::com {

namespace {

constexpr const wchar_t* ActiveName = L"ImageView";

} // namespace

HRESULT InPlace::activate() {
    if (!isActive()) {
        const auto site = host_.clientSite().as<IOleInPlaceSite>();
        if (!site)
            return E_FAIL;
        if (site->CanInPlaceActivate() != S_OK)
            return E_FAIL;
        if (const HRESULT entered = enter(*site); FAILED(entered))
            return entered;
    }
    visible_ = true;
    client_.showWindow(true);
    if (host_.clientSite())
        host_.clientSite()->ShowObject();
    return S_OK;
}

HRESULT InPlace::enter(IOleInPlaceSite& site) {
    if (const HRESULT result = site.OnInPlaceActivate(); FAILED(result))
        return result;
    site_ = ComPtr<IOleInPlaceSite>(&site);
    HWND parent = nullptr;
    RECT place{};
    RECT clip{};
    OLEINPLACEFRAMEINFO info{};
    info.cb = sizeof info;
    site.GetWindow(&parent);
    HRESULT result = site.GetWindowContext(frame_.receive(), document_.receive(), &place, &clip, &info);
    if (SUCCEEDED(result) && parent && client_.createWindow(parent, place)) {
        if (isActive())
            client_.setPlace(place, clip);
        return isActive() ? S_OK : E_FAIL;
    }
    leave();
    return FAILED(result) ? result : E_FAIL;
}

HRESULT InPlace::use() {
    if (const HRESULT result = activate(); FAILED(result))
        return result;
    if (!inUse_) {
        if (const HRESULT result = site_->OnUIActivate(); FAILED(result))
            return result;
        inUse_ = true;
        announce(true);
        host_.tellFocus(true);
    }
    if (!client_.hasFocus())
        client_.takeFocus();
    return S_OK;
}

void InPlace::announce(bool active) {
    const auto object = active ? client_.activeObject() : ComPtr<IOleInPlaceActiveObject>();
    if (frame_)
        frame_->SetActiveObject(object.get(), active ? ActiveName : nullptr);
    if (document_)
        document_->SetActiveObject(object.get(), active ? ActiveName : nullptr);
    // The control has no tools of its own in the host's frame; this makes room for the host's.
    if (active && frame_)
        frame_->SetBorderSpace(nullptr);
}

void InPlace::focused() {
    if (isActive() && !inUse_)
        use();
}

void InPlace::hide() {
    visible_ = false;
    endUse();
    client_.showWindow(false);
}

void InPlace::endUse() {
    if (!std::exchange(inUse_, false))
        return;
    announce(false);
    host_.tellFocus(false);
    if (site_)
        site_->OnUIDeactivate(FALSE);
}

void InPlace::deactivate() {
    if (!isActive())
        return;
    endUse();
    client_.destroyWindow();
    leave();
}

void InPlace::leave() {
    visible_ = false;
    frame_.reset();
    document_.reset();
    // A site that hears of the end may ask for the next beginning.
    if (const auto site = std::exchange(site_, nullptr))
        site->OnInPlaceDeactivate();
}

void InPlace::setPlace(const RECT& place, const RECT& clip) {
    if (isActive())
        client_.setPlace(place, clip);
}

void InPlace::enableModeless(bool enable) {
    if (frame_)
        frame_->EnableModeless(enable);
}

} // namespace pixmo::com
