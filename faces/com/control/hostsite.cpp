#include "faces/com/control/hostsite.h"

#include "faces/com/control/fontobject.h"

#include <array>
#include <olectl.h>
#include <servprov.h>

namespace pixmo::com {

namespace {

/// Services that only the site of a web page or of a script offers: the browser's window, the page's security
/// manager, the page itself, the script.
constexpr std::array PageServices{
    GUID{0x0002DF05, 0x0000, 0x0000, {0xC0, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x46}},
    GUID{0x79EAC9EE, 0xBAF9, 0x11CE, {0x8C, 0x82, 0x00, 0xAA, 0x00, 0x4B, 0xA9, 0x0B}},
    GUID{0x626FC520, 0xA41E, 0x11CF, {0xA7, 0x31, 0x00, 0xA0, 0xC9, 0x08, 0x26, 0x37}},
    GUID{0xDB01A1E3, 0xA42B, 0x11CF, {0x8F, 0x20, 0x00, 0x80, 0x5F, 0x2C, 0xD0, 0x64}},
};

bool offersPageService(IUnknown* site) {
    const auto provider = queryFor<IServiceProvider>(site);
    if (!provider)
        return false;
    for (const GUID& service : PageServices) {
        ComPtr<IUnknown> found;
        if (SUCCEEDED(provider->QueryService(service, IID_IUnknown, found.receiveAny())) && found)
            return true;
    }
    return false;
}

HWND windowOf(IUnknown* site) {
    HWND window = nullptr;
    const auto known = queryFor<IOleWindow>(site);
    return known && SUCCEEDED(known->GetWindow(&window)) ? window : nullptr;
}

DWORD keyModifiers() {
    const auto down = [](int key, DWORD bit) { return GetKeyState(key) < 0 ? bit : 0U; };
    return down(VK_SHIFT, 1) | down(VK_CONTROL, 2) | down(VK_MENU, 4);
}

} // namespace

void HostSite::setClientSite(ComPtr<IOleClientSite> site) {
    clientSite_ = std::move(site);
    controlSite_ = clientSite_.as<IOleControlSite>();
    ambients_ = clientSite_.as<IDispatch>();
}

Variant HostSite::ambient(DISPID id) const {
    Variant value;
    if (!ambients_)
        return value;
    DISPPARAMS none{};
    if (FAILED(ambients_->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET, &none, value.get(),
                                 nullptr, nullptr)))
        return {};
    return value;
}

template <class Type>
bool HostSite::readAmbient(DISPID id, VARTYPE type, Type VARIANT::*member, Type& value) const {
    Variant told = ambient(id);
    if (told.type() == VT_EMPTY || FAILED(told.convertTo(type)))
        return false;
    value = told.get()->*member;
    return true;
}

bool HostSite::flag(DISPID id, bool otherwise) const {
    VARIANT_BOOL value = VARIANT_FALSE;
    return readAmbient(id, VT_BOOL, &VARIANT::boolVal, value) ? value != VARIANT_FALSE : otherwise;
}

bool HostSite::userMode() const {
    return flag(DISPID_AMBIENT_USERMODE, true);
}

bool HostSite::displayAsDefault() const {
    return flag(DISPID_AMBIENT_DISPLAYASDEFAULT, false);
}

bool HostSite::rightToLeft() const {
    return flag(DISPID_AMBIENT_RIGHTTOLEFT, false);
}

LCID HostSite::locale() const {
    LONG value = 0;
    return readAmbient(DISPID_AMBIENT_LOCALEID, VT_I4, &VARIANT::lVal, value) ? static_cast<LCID>(value)
                                                                              : GetUserDefaultLCID();
}

Colour HostSite::backColor() const {
    LONG value = 0;
    if (readAmbient(DISPID_AMBIENT_BACKCOLOR, VT_I4, &VARIANT::lVal, value))
        return {static_cast<uint32_t>(value)};
    return {0x80000000U | COLOR_BTNFACE};
}

Font HostSite::font() const {
    const auto font = ambient(DISPID_AMBIENT_FONT).object().as<IFont>();
    return font ? fontOf(*font) : Font{};
}

bool HostSite::takesKey(MSG& message) const {
    return controlSite_ && controlSite_->TranslateAccelerator(&message, keyModifiers()) == S_OK;
}

void HostSite::tellFocus(bool focused) const {
    if (controlSite_)
        controlSite_->OnFocus(focused);
}

bool HostSite::showsProperties() const {
    return controlSite_ && controlSite_->ShowPropertyFrame() == S_OK;
}

HWND HostSite::window() const {
    const HWND window = windowOf(clientSite_.get());
    return window ? window : windowOf(objectSite_.get());
}

bool HostSite::isPage() const {
    return offersPageService(clientSite_.get()) || offersPageService(objectSite_.get());
}

} // namespace pixmo::com
