#pragma once

#include "core/control/propertypage.h"
#include "faces/com/control/identifiers.h"
#include "faces/com/control/part.h"

#include <ocidl.h>

namespace pixmo::com {

/// Where a host finds the description of the class and the identity of its events.
class ClassInfoPart : public Part<IProvideClassInfo2, IProvideClassInfo> {
public:
    using Part::Part;

    STDMETHODIMP GetClassInfo(ITypeInfo** info) override;
    STDMETHODIMP GetGUID(DWORD kind, GUID* guid) override;

protected:
    ~ClassInfoPart() = default;
};

/// Failures of the public interface, and of what keeps the properties, come with a description.
class ErrorInfoPart : public Part<ISupportErrorInfo> {
public:
    using Part::Part;

    STDMETHODIMP InterfaceSupportsErrorInfo(REFIID iid) override;

protected:
    ~ErrorInfoPart() = default;
};

/// What the control calls: its events, and the changes of its properties.
class ConnectionsPart : public Part<IConnectionPointContainer> {
public:
    using Part::Part;

    STDMETHODIMP EnumConnectionPoints(IEnumConnectionPoints** points) override;
    STDMETHODIMP FindConnectionPoint(REFIID iid, IConnectionPoint** point) override;

protected:
    ~ConnectionsPart() = default;
};

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

class PagesPart : public Part<ISpecifyPropertyPages> {
public:
    using Part::Part;

    STDMETHODIMP GetPages(CAUUID* pages) override;

protected:
    ~PagesPart() = default;
};

} // namespace pixmo::com
