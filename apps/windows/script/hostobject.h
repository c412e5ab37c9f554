#pragma once

#include "faces/com/base/comobject.h"
#include "faces/com/base/variant.h"

#include <functional>
#include <oaidl.h>
#include <string>
#include <vector>

namespace pixmo::script {

/// What a script can call by a name: its arguments in the order in which the script writes them.
using Arguments = std::vector<VARIANT>;
using Procedure = std::function<com::Variant(const Arguments&)>;
using Procedures = std::vector<std::pair<std::wstring, Procedure>>;

/// An object whose members are procedures. A procedure that throws is an error of the script.
class HostObjectPart : public IDispatch {
public:
    using Exposes = com::Exposed<IDispatch>;

    explicit HostObjectPart(Procedures& procedures) : procedures_(procedures) {}

    STDMETHODIMP GetTypeInfoCount(UINT* count) override;
    STDMETHODIMP GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) override;
    STDMETHODIMP GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID locale,
                               DISPID* ids) override;
    STDMETHODIMP Invoke(DISPID member, REFIID reserved, LCID locale, WORD flags, DISPPARAMS* parameters,
                        VARIANT* result, EXCEPINFO* exception, UINT* wrongArgument) override;

protected:
    ~HostObjectPart() = default;

private:
    Procedures procedures_;
};

class HostObject final : public com::ComObject<HostObjectPart> {
public:
    explicit HostObject(Procedures procedures) : ComObject(nullptr, procedures) {}
};

} // namespace pixmo::script
