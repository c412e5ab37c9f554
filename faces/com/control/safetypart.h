#pragma once

#include "faces/com/control/part.h"

#include <objsafe.h>

namespace pixmo::com {

class SafetyPart : public Part<IObjectSafety> {
public:
    using Part::Part;

    STDMETHODIMP GetInterfaceSafetyOptions(REFIID iid, DWORD* supported, DWORD* enabled) override;
    STDMETHODIMP SetInterfaceSafetyOptions(REFIID iid, DWORD mask, DWORD options) override;

protected:
    ~SafetyPart() = default;
};

} // namespace pixmo::com
