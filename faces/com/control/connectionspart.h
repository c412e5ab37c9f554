#pragma once

#include "faces/com/control/part.h"

#include <ocidl.h>

namespace pixmo::com {

/// What the control calls: its events, and the changes of its properties.
class ConnectionsPart : public Part<IConnectionPointContainer> {
public:
    using Part::Part;

    STDMETHODIMP EnumConnectionPoints(IEnumConnectionPoints** points) override;
    STDMETHODIMP FindConnectionPoint(REFIID iid, IConnectionPoint** point) override;

protected:
    ~ConnectionsPart() = default;
};

} // namespace pixmo::com
