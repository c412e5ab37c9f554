#pragma once

#include "faces/com/base/comobject.h"
#include "faces/com/base/variant.h"
#include "tests/com/control/hosting/hostprofile.h"

#include <functional>
#include <map>
#include <oaidl.h>
#include <ocidl.h>
#include <oleidl.h>
#include <servprov.h>
#include <string>
#include <vector>

namespace pixmo::com::test {

/// What a host's site and frame answer, and what the control has asked of them.
struct SiteRecord {
    HostProfile profile;
    std::map<DISPID, Variant> ambients;
    HWND window = nullptr;
    RECT place{0, 0, 400, 300};
    RECT clip{0, 0, 400, 300};
    bool refusesActivation = false;

    std::vector<std::string> calls;
    int modelessDepth = 0; ///< EnableModeless(FALSE) without its TRUE yet
    ComPtr<IOleInPlaceActiveObject> active;
    std::vector<WPARAM> keys; ///< offered to the site
    /// Whether the host takes a key that it is offered; none: as its profile says.
    std::function<bool(const MSG&)> takesKey;

    void called(std::string call) { calls.push_back(std::move(call)); }
};

template <class Interface, class... Extended>
class SitePart : public Interface {
public:
    using Exposes = Exposed<Interface, Extended...>;
    explicit SitePart(SiteRecord& record) : record_(record) {}

protected:
    ~SitePart() = default;
    SiteRecord& record_;
};

class ClientSitePart : public SitePart<IOleClientSite> {
public:
    using SitePart::SitePart;
    STDMETHODIMP SaveObject() override;
    STDMETHODIMP GetMoniker(DWORD, DWORD, IMoniker**) override { return E_NOTIMPL; }
    STDMETHODIMP GetContainer(IOleContainer** container) override;
    STDMETHODIMP ShowObject() override { return S_OK; }
    STDMETHODIMP OnShowWindow(BOOL) override { return S_OK; }
    STDMETHODIMP RequestNewObjectLayout() override { return E_NOTIMPL; }

protected:
    ~ClientSitePart() = default;
};

class InPlaceSitePart : public SitePart<IOleInPlaceSite, IOleWindow> {
public:
    using SitePart::SitePart;
    STDMETHODIMP GetWindow(HWND* window) override;
    STDMETHODIMP ContextSensitiveHelp(BOOL) override { return E_NOTIMPL; }
    STDMETHODIMP CanInPlaceActivate() override { return record_.refusesActivation ? S_FALSE : S_OK; }
    STDMETHODIMP OnInPlaceActivate() override;
    STDMETHODIMP OnUIActivate() override;
    STDMETHODIMP GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document, LPRECT place,
                                  LPRECT clip, LPOLEINPLACEFRAMEINFO info) override;
    STDMETHODIMP Scroll(SIZE) override { return E_NOTIMPL; }
    STDMETHODIMP OnUIDeactivate(BOOL) override;
    STDMETHODIMP OnInPlaceDeactivate() override;
    STDMETHODIMP DiscardUndoState() override { return S_OK; }
    STDMETHODIMP DeactivateAndUndo() override { return S_OK; }
    STDMETHODIMP OnPosRectChange(LPCRECT) override { return S_OK; }

protected:
    ~InPlaceSitePart() = default;
};

class ControlSitePart : public SitePart<IOleControlSite> {
public:
    using SitePart::SitePart;
    STDMETHODIMP OnControlInfoChanged() override { return S_OK; }
    STDMETHODIMP LockInPlaceActive(BOOL) override { return S_OK; }
    STDMETHODIMP GetExtendedControl(IDispatch**) override { return E_NOTIMPL; }
    STDMETHODIMP TransformCoords(POINTL*, POINTF*, DWORD) override { return E_NOTIMPL; }
    STDMETHODIMP TranslateAccelerator(MSG* message, DWORD modifiers) override;
    STDMETHODIMP OnFocus(BOOL focused) override;
    STDMETHODIMP ShowPropertyFrame() override { return E_NOTIMPL; }

protected:
    ~ControlSitePart() = default;
};

/// The ambient properties; a host without them answers as one that has no such interface.
class AmbientPart : public SitePart<IDispatch> {
public:
    using SitePart::SitePart;
    STDMETHODIMP GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
    STDMETHODIMP Invoke(DISPID member, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* result, EXCEPINFO*,
                        UINT*) override;

protected:
    ~AmbientPart() = default;
};

class ServicePart : public SitePart<IServiceProvider> {
public:
    using SitePart::SitePart;
    STDMETHODIMP QueryService(REFGUID service, REFIID iid, void** object) override;

protected:
    ~ServicePart() = default;
};

class FramePart : public SitePart<IOleInPlaceFrame, IOleInPlaceUIWindow, IOleWindow> {
public:
    using SitePart::SitePart;
    STDMETHODIMP GetWindow(HWND* window) override;
    STDMETHODIMP ContextSensitiveHelp(BOOL) override { return E_NOTIMPL; }
    STDMETHODIMP GetBorder(LPRECT) override { return E_NOTIMPL; }
    STDMETHODIMP RequestBorderSpace(LPCBORDERWIDTHS) override { return E_NOTIMPL; }
    STDMETHODIMP SetBorderSpace(LPCBORDERWIDTHS) override { return S_OK; }
    STDMETHODIMP SetActiveObject(IOleInPlaceActiveObject* object, LPCOLESTR name) override;
    STDMETHODIMP InsertMenus(HMENU, LPOLEMENUGROUPWIDTHS) override { return E_NOTIMPL; }
    STDMETHODIMP SetMenu(HMENU, HOLEMENU, HWND) override { return E_NOTIMPL; }
    STDMETHODIMP RemoveMenus(HMENU) override { return E_NOTIMPL; }
    STDMETHODIMP SetStatusText(LPCOLESTR) override { return E_NOTIMPL; }
    STDMETHODIMP EnableModeless(BOOL enable) override;
    STDMETHODIMP TranslateAccelerator(LPMSG, WORD) override { return S_FALSE; }

protected:
    ~FramePart() = default;
};

using Site = ComObject<ClientSitePart, InPlaceSitePart, ControlSitePart, AmbientPart, ServicePart>;
using PlainSite = ComObject<ClientSitePart, InPlaceSitePart, ControlSitePart>;

class FullSite final : public Site {
public:
    explicit FullSite(SiteRecord& record) : ComObject(nullptr, record) {}
};

/// Without ambient properties and services.
class BareSite final : public PlainSite {
public:
    explicit BareSite(SiteRecord& record) : ComObject(nullptr, record) {}
};

class Frame final : public ComObject<FramePart> {
public:
    explicit Frame(SiteRecord& record) : ComObject(nullptr, record) {}
};

} // namespace pixmo::com::test
