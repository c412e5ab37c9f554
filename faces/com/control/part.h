#pragma once

#include "faces/com/base/boundary.h"
#include "faces/com/base/comobject.h"
#include "faces/com/control/controlcontext.h"

namespace pixmo::com {

/// What every part of the control's object is made of: one interface over the shared context.
template <class Interface, class... Extended>
class Part : public Interface {
public:
    using Exposes = Exposed<Interface, Extended...>;

    explicit Part(ControlContext& context) : context_(context) {}

protected:
    ~Part() = default;

    /// Runs a call from the host; whatever it brings about, the object outlives it.
    template <class Body>
    HRESULT call(const char* procedure, Body&& body) {
        const ComPtr<IUnknown> held(&context_.known());
        return boundary(__uuidof(Interface), procedure, [&]() -> HRESULT { return body(); });
    }

    ControlContext& context_;
};

} // namespace pixmo::com
