#pragma once

#include "faces/com/control/part.h"

#include <ocidl.h>

namespace pixmo::com {

/// Site, sinks and answers exchanged in one call.
class QuickActivatePart : public Part<IQuickActivate> {
public:
    using Part::Part;

    STDMETHODIMP QuickActivate(QACONTAINER* container, QACONTROL* control) override;
    STDMETHODIMP SetContentExtent(LPSIZEL size) override;
    STDMETHODIMP GetContentExtent(LPSIZEL size) override;

protected:
    ~QuickActivatePart() = default;

private:
    void connect(REFIID outgoing, IUnknown* sink, DWORD& cookie);
};

} // namespace pixmo::com
