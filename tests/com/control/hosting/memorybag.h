#pragma once

#include "faces/com/base/comobject.h"
#include "faces/com/base/variant.h"

#include <map>
#include <ocidl.h>
#include <string>
#include <vector>

namespace pixmo::com::test {

/// A property bag as forms and pages have them: values are text, objects stay objects.
struct BagContents {
    std::map<std::wstring, std::wstring> texts;
    std::map<std::wstring, ComPtr<IUnknown>> objects;
    std::vector<std::wstring> written; ///< keys in the order in which they were written
};

class MemoryBagPart : public IPropertyBag {
public:
    using Exposes = Exposed<IPropertyBag>;

    explicit MemoryBagPart(BagContents& contents) : contents_(contents) {}

    STDMETHODIMP Read(LPCOLESTR name, VARIANT* value, IErrorLog* log) override;
    STDMETHODIMP Write(LPCOLESTR name, VARIANT* value) override;

protected:
    ~MemoryBagPart() = default;

private:
    BagContents& contents_;
};

class MemoryBag final : public ComObject<MemoryBagPart> {
public:
    explicit MemoryBag(BagContents& contents) : ComObject(nullptr, contents) {}
};

} // namespace pixmo::com::test
