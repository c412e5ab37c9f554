#pragma once

#include "faces/com/control/identifiers.h"
#include "faces/com/control/part.h"

namespace pixmo::com {

/// Failures of the public interface, and of what keeps the properties, come with a description.
class ErrorInfoPart : public Part<ISupportErrorInfo> {
public:
    using Part::Part;

    STDMETHODIMP InterfaceSupportsErrorInfo(REFIID iid) override;

protected:
    ~ErrorInfoPart() = default;
};

} // namespace pixmo::com
