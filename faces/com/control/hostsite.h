#pragma once

#include "core/platform/propertyvalue.h"
#include "faces/com/base/comptr.h"
#include "faces/com/base/variant.h"

#include <ocidl.h>

namespace pixmo::com {

/// The container as the control sees it. Nothing of it is certain to be there: without a site, or where the
/// site does not tell, the answers are the usual ones.
class HostSite {
public:
    void setClientSite(ComPtr<IOleClientSite> site);
    const ComPtr<IOleClientSite>& clientSite() const { return clientSite_; }
    /// The site that a host sets by IObjectWithSite: it may be the only one.
    void setObjectSite(ComPtr<IUnknown> site) { objectSite_ = std::move(site); }
    const ComPtr<IUnknown>& objectSite() const { return objectSite_; }

    bool userMode() const;
    bool displayAsDefault() const;
    bool rightToLeft() const;
    LCID locale() const;
    Colour backColor() const;
    Font font() const;

    /// Whether the container takes the key.
    bool takesKey(MSG& message) const;
    void tellFocus(bool focused) const;
    /// Whether the container shows a window of properties of its own.
    bool showsProperties() const;
    /// The container's window, whichever part of the site knows it; null when none does.
    HWND window() const;
    /// Whether one of the sites belongs to a page or a script, which speaks for somebody else than the host.
    bool isPage() const;

private:
    Variant ambient(DISPID id) const;
    template <class Type>
    bool readAmbient(DISPID id, VARTYPE type, Type VARIANT::*member, Type& value) const;
    bool flag(DISPID id, bool otherwise) const;

    ComPtr<IOleClientSite> clientSite_;
    ComPtr<IOleControlSite> controlSite_;
    ComPtr<IDispatch> ambients_;
    ComPtr<IUnknown> objectSite_;
};

} // namespace pixmo::com
