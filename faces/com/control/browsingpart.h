#pragma once

#include "faces/com/control/part.h"
#include "faces/com/control/predefinedvalues.h"

#include <ocidl.h>

namespace pixmo::com {

/// Names for the values of enumerated properties, for a form designer's list of properties.
class BrowsingPart : public Part<IPerPropertyBrowsing> {
public:
    using Part::Part;

    STDMETHODIMP GetDisplayString(DISPID property, BSTR* text) override;
    STDMETHODIMP MapPropertyToPage(DISPID property, CLSID* page) override;
    STDMETHODIMP GetPredefinedStrings(DISPID property, CALPOLESTR* texts, CADWORD* cookies) override;
    STDMETHODIMP GetPredefinedValue(DISPID property, DWORD cookie, VARIANT* value) override;

protected:
    ~BrowsingPart() = default;

private:
    std::string nameOf(DISPID property) const;
};

} // namespace pixmo::com
