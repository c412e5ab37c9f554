#pragma once

#include "faces/com/control/part.h"

#include <ocidl.h>

namespace pixmo::com {

/// Persistence as bytes; hosts that know no initialisation use the same methods.
class PersistStreamPart : public Part<IPersistStreamInit, IPersistStream, IPersist> {
public:
    using Part::Part;

    STDMETHODIMP GetClassID(CLSID* classId) override;
    STDMETHODIMP IsDirty() override;
    STDMETHODIMP Load(IStream* stream) override;
    STDMETHODIMP Save(IStream* stream, BOOL clearDirty) override;
    STDMETHODIMP GetSizeMax(ULARGE_INTEGER* size) override;
    STDMETHODIMP InitNew() override;

protected:
    ~PersistStreamPart() = default;
};

} // namespace pixmo::com
