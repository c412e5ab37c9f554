#pragma once

#include "faces/com/control/part.h"

#include <objidl.h>

namespace pixmo::com {

/// Persistence in a compound document: the same bytes in a stream of their own.
class PersistStoragePart : public Part<IPersistStorage> {
public:
    using Part::Part;

    STDMETHODIMP GetClassID(CLSID* classId) override;
    STDMETHODIMP IsDirty() override;
    STDMETHODIMP InitNew(IStorage* storage) override;
    STDMETHODIMP Load(IStorage* storage) override;
    STDMETHODIMP Save(IStorage* storage, BOOL sameAsLoad) override;
    STDMETHODIMP SaveCompleted(IStorage* storage) override;
    STDMETHODIMP HandsOffStorage() override;

protected:
    ~PersistStoragePart() = default;

private:
    bool mayWrite_ = true; ///< not between Save and SaveCompleted
};

} // namespace pixmo::com
