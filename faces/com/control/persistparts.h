#pragma once

#include "faces/com/control/part.h"

#include <objidl.h>
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
