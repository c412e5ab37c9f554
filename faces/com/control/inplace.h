#pragma once

#include "faces/com/base/comptr.h"
#include "faces/com/control/hostsite.h"

#include <oleidl.h>

namespace pixmo::com {

/// What the place of the control in its host asks of the control.
class InPlaceClient {
public:
    virtual ~InPlaceClient() = default;
    virtual HWND createWindow(HWND parent, const RECT& place) = 0;
    virtual void destroyWindow() = 0;
    virtual void setPlace(const RECT& place, const RECT& clip) = 0;
    virtual void showWindow(bool visible) = 0;
    virtual void takeFocus() = 0;
    virtual bool hasFocus() const = 0;
    virtual ComPtr<IOleInPlaceActiveObject> activeObject() = 0;
};

/// The control's life in its host's window: placed or not, in use by the user or not.
class InPlace {
public:
    /// Both outlive it.
    InPlace(InPlaceClient& client, const HostSite& host) : client_(client), host_(host) {}

    bool isActive() const { return static_cast<bool>(site_); }
    bool isInUse() const { return inUse_; }
    /// Whether the window is to be seen; a host may hide it without taking its place.
    bool isVisible() const { return visible_; }

    /// Places the control where its site says, and shows it. A failed result when the site refuses.
    HRESULT activate();
    /// The same, and the user works with it now.
    HRESULT use();
    void hide();
    void endUse();
    void deactivate();
    void setPlace(const RECT& place, const RECT& clip);

    /// The focus came to the control by the user's hand.
    void focused();
    void enableModeless(bool enable);

private:
    HRESULT enter(IOleInPlaceSite& site);
    void leave();
    void announce(bool active);

    InPlaceClient& client_;
    const HostSite& host_;
    ComPtr<IOleInPlaceSite> site_;
    ComPtr<IOleInPlaceFrame> frame_;
    ComPtr<IOleInPlaceUIWindow> document_;
    bool inUse_ = false;
    bool visible_ = false;
};

} // namespace pixmo::com
