#pragma once

#include "faces/com/control/part.h"

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

} // namespace pixmo::com
