#pragma once

#include "faces/com/base/comobject.h"

#include <oaidl.h>
#include <ocidl.h>
#include <oleidl.h>

namespace pixmo::form {

using com::Exposed;

/// The window that a site speaks for. Unless it says otherwise the form is run, not designed, looks as the
/// system does, and leaves all keys to its controls.
class SiteOwner {
public:
    virtual ~SiteOwner() = default;

    virtual HWND window() const = 0;
    /// Where the control is, in the window's coordinates.
    virtual RECT place() const = 0;
    /// Who gets the keys from now on; null for nobody.
    virtual void setActive(IOleInPlaceActiveObject* object) = 0;
    virtual void enableModeless(bool enable) = 0;
    virtual HRESULT ambient(DISPID property, VARIANT& value);
    virtual HRESULT save() { return E_NOTIMPL; }
    virtual bool mayActivate() const { return true; }
    /// Whether it has a use for a key for which the control has none.
    virtual bool takesKey(const MSG&) { return false; }
    /// A step of the control's between its states, by the name of the call.
    virtual void stepped(const char*) {}
};

/// One interface of the site; nothing of it is answered once the owner is gone.
template <class Interface, class... Extended>
class SitePart : public Interface {
public:
    using Exposes = Exposed<Interface, Extended...>;
    explicit SitePart(SiteOwner& owner) : owner_(&owner) {}
    void forgetOwner() { owner_ = nullptr; }

protected:
    ~SitePart() = default;
    HRESULT step(const char* call) {
        if (owner_)
            owner_->stepped(call);
        return S_OK;
    }

    SiteOwner* owner_;
};

class ClientSite : public SitePart<IOleClientSite> {
public:
    using SitePart::SitePart;
    STDMETHODIMP SaveObject() override { return owner_ ? owner_->save() : E_FAIL; }
    STDMETHODIMP GetMoniker(DWORD, DWORD, IMoniker** moniker) override;
    STDMETHODIMP GetContainer(IOleContainer** container) override;
    STDMETHODIMP ShowObject() override { return S_OK; }
    STDMETHODIMP OnShowWindow(BOOL) override { return S_OK; }
    STDMETHODIMP RequestNewObjectLayout() override { return E_NOTIMPL; }

protected:
    ~ClientSite() = default;
};

class InPlaceSite : public SitePart<IOleInPlaceSite, IOleWindow> {
public:
    using SitePart::SitePart;
    STDMETHODIMP GetWindow(HWND* window) override;
    STDMETHODIMP ContextSensitiveHelp(BOOL) override { return E_NOTIMPL; }
    STDMETHODIMP CanInPlaceActivate() override { return owner_ && owner_->mayActivate() ? S_OK : S_FALSE; }
    STDMETHODIMP OnInPlaceActivate() override { return step("OnInPlaceActivate"); }
    STDMETHODIMP OnUIActivate() override { return step("OnUIActivate"); }
    STDMETHODIMP GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document, LPRECT place,
                                  LPRECT clip, LPOLEINPLACEFRAMEINFO info) override;
    STDMETHODIMP Scroll(SIZE) override { return E_NOTIMPL; }
    STDMETHODIMP OnUIDeactivate(BOOL) override { return step("OnUIDeactivate"); }
    STDMETHODIMP OnInPlaceDeactivate() override { return step("OnInPlaceDeactivate"); }
    STDMETHODIMP DiscardUndoState() override { return E_NOTIMPL; }
    STDMETHODIMP DeactivateAndUndo() override { return E_NOTIMPL; }
    STDMETHODIMP OnPosRectChange(LPCRECT) override { return S_OK; }

protected:
    ~InPlaceSite() = default;
};

class ControlSite : public SitePart<IOleControlSite> {
public:
    using SitePart::SitePart;
    STDMETHODIMP OnControlInfoChanged() override { return S_OK; }
    STDMETHODIMP LockInPlaceActive(BOOL) override { return E_NOTIMPL; }
    STDMETHODIMP GetExtendedControl(IDispatch** control) override;
    STDMETHODIMP TransformCoords(POINTL*, POINTF*, DWORD) override { return E_NOTIMPL; }
    STDMETHODIMP TranslateAccelerator(MSG* message, DWORD) override {
        return owner_ && owner_->takesKey(*message) ? S_OK : S_FALSE;
    }
    STDMETHODIMP OnFocus(BOOL focused) override { return step(focused ? "OnFocus(true)" : "OnFocus(false)"); }
    STDMETHODIMP ShowPropertyFrame() override { return E_NOTIMPL; }

protected:
    ~ControlSite() = default;
};

/// The ambient properties.
class Ambients : public SitePart<IDispatch> {
public:
    using SitePart::SitePart;
    STDMETHODIMP GetTypeInfoCount(UINT* count) override;
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
    STDMETHODIMP Invoke(DISPID member, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* result, EXCEPINFO*,
                        UINT*) override;

protected:
    ~Ambients() = default;
};

class Frame : public SitePart<IOleInPlaceFrame, IOleInPlaceUIWindow> {
public:
    using SitePart::SitePart;
    STDMETHODIMP GetWindow(HWND* window) override;
    STDMETHODIMP ContextSensitiveHelp(BOOL) override { return E_NOTIMPL; }
    STDMETHODIMP GetBorder(LPRECT) override { return INPLACE_E_NOTOOLSPACE; }
    STDMETHODIMP RequestBorderSpace(LPCBORDERWIDTHS) override { return INPLACE_E_NOTOOLSPACE; }
    STDMETHODIMP SetBorderSpace(LPCBORDERWIDTHS) override { return S_OK; }
    STDMETHODIMP SetActiveObject(IOleInPlaceActiveObject* object, LPCOLESTR) override;
    STDMETHODIMP InsertMenus(HMENU, LPOLEMENUGROUPWIDTHS) override { return E_NOTIMPL; }
    STDMETHODIMP SetMenu(HMENU, HOLEMENU, HWND) override { return E_NOTIMPL; }
    STDMETHODIMP RemoveMenus(HMENU) override { return E_NOTIMPL; }
    STDMETHODIMP SetStatusText(LPCOLESTR) override { return S_OK; }
    STDMETHODIMP EnableModeless(BOOL enable) override;
    STDMETHODIMP TranslateAccelerator(LPMSG, WORD) override { return S_FALSE; }

protected:
    ~Frame() = default;
};

/// The place of one control in a window.
class FormSite final : public com::ComObject<ClientSite, InPlaceSite, ControlSite, Ambients, Frame> {
public:
    explicit FormSite(SiteOwner& owner) : ComObject(nullptr, owner) {}
    void forget();
};

} // namespace pixmo::form
