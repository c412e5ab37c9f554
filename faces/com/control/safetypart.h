#pragma once

#include "faces/com/control/part.h"

#include <objsafe.h>

// The compiler's headers declare the interface without its identity.
__CRT_UUID_DECL(IObjectSafety, 0xCB5BDC81, 0x93C1, 0x11CF, 0x8F, 0x20, 0x00, 0x80, 0x5F, 0x2C, 0xD0, 0x64)

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
