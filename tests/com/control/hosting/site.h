#pragma once

#include "apps/windows/form/formsite.h"
#include "faces/com/base/variant.h"
#include "tests/com/control/hosting/hostprofile.h"

#include <functional>
#include <map>
#include <servprov.h>
#include <string>
#include <vector>

namespace pixmo::com::test {

/// What a host's site and frame answer, and what the control has asked of them.
class SiteRecord : public form::SiteOwner {
public:
    HostProfile profile;
    std::map<DISPID, Variant> ambients;
    HWND handle = nullptr;
    RECT area{0, 0, 400, 300};
    bool refusesActivation = false;

    std::vector<std::string> calls;
    int modelessDepth = 0; ///< EnableModeless(FALSE) without its TRUE yet
    ComPtr<IOleInPlaceActiveObject> active;
    std::vector<WPARAM> keys; ///< offered to the site
    /// Whether the host takes a key that it is offered; none: as its profile says.
    std::function<bool(const MSG&)> keyTaker;

private:
    HWND window() const override { return handle; }
    RECT place() const override { return area; }
    void setActive(IOleInPlaceActiveObject* object) override {
        active = ComPtr<IOleInPlaceActiveObject>(object);
    }
    void enableModeless(bool enable) override { modelessDepth += enable ? -1 : 1; }
    HRESULT ambient(DISPID property, VARIANT& value) override {
        const auto found = ambients.find(property);
        return found == ambients.end() ? DISP_E_MEMBERNOTFOUND : VariantCopy(&value, found->second.get());
    }
    HRESULT save() override {
        calls.emplace_back("SaveObject");
        return S_OK;
    }
    bool mayActivate() const override { return !refusesActivation; }
    bool takesKey(const MSG& message) override {
        keys.push_back(message.wParam);
        return keyTaker ? keyTaker(message) : profile.takesKeys;
    }
    void stepped(const char* call) override { calls.emplace_back(call); }
};

/// A page's site offers the browser's own window.
class Services : public form::SitePart<IServiceProvider> {
public:
    explicit Services(SiteRecord& record) : SitePart(record), isPage_(record.profile.isPage) {}
    STDMETHODIMP QueryService(REFGUID service, REFIID iid, void** object) override {
        static constexpr GUID browser{0x0002DF05, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
        *object = nullptr;
        return isPage_ && IsEqualGUID(service, browser) ? QueryInterface(iid, object) : E_NOINTERFACE;
    }

protected:
    ~Services() = default;

private:
    const bool isPage_;
};

template <class... Parts>
class TestSite final
    : public ComObject<form::ClientSite, form::InPlaceSite, form::ControlSite, form::Frame, Parts...> {
public:
    explicit TestSite(SiteRecord& record) : TestSite::ComObject(nullptr, record) {}
};

using FullSite = TestSite<form::Ambients, Services>;
/// Without ambient properties and services.
using BareSite = TestSite<>;

} // namespace pixmo::com::test
