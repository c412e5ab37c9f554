#pragma once

#include "faces/com/control/part.h"

#include <ocidl.h>

namespace pixmo::com {

/// Persistence as named values: a form's text, a page's parameters.
class PersistBagPart : public Part<IPersistPropertyBag> {
public:
    using Part::Part;

    STDMETHODIMP GetClassID(CLSID* classId) override;
    STDMETHODIMP InitNew() override;
    STDMETHODIMP Load(IPropertyBag* bag, IErrorLog* log) override;
    STDMETHODIMP Save(IPropertyBag* bag, BOOL clearDirty, BOOL saveAll) override;

protected:
    ~PersistBagPart() = default;
};

} // namespace pixmo::com
