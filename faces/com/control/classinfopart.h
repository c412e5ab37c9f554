#pragma once

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

} // namespace pixmo::com
