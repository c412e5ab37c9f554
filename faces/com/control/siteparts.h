#pragma once

#include "faces/com/control/part.h"

#include <objsafe.h>
#include <ocidl.h>

namespace pixmo::com {

/// The site of a host that has no place for the control to show.
class ObjectSitePart : public Part<IObjectWithSite> {
public:
    using Part::Part;

    STDMETHODIMP SetSite(IUnknown* site) override;
    STDMETHODIMP GetSite(REFIID iid, void** site) override;

protected:
    ~ObjectSitePart() = default;
};

class SafetyPart : public Part<IObjectSafety> {
public:
    using Part::Part;

    STDMETHODIMP GetInterfaceSafetyOptions(REFIID iid, DWORD* supported, DWORD* enabled) override;
    STDMETHODIMP SetInterfaceSafetyOptions(REFIID iid, DWORD mask, DWORD options) override;

protected:
    ~SafetyPart() = default;
};

} // namespace pixmo::com
