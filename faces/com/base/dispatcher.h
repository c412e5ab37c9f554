#pragma once

#include "faces/com/base/comptr.h"

#include <oaidl.h>

namespace pixmo::com {

/// IDispatch of one dual interface by its description in the type library. What a script passes by
/// reference as a variant reaches typed by-reference parameters and comes back.
class Dispatcher {
public:
    explicit Dispatcher(REFIID interfaceId);

    HRESULT typeInfo(UINT index, ITypeInfo** info) const;
    HRESULT idsOfNames(REFIID reserved, LPOLESTR* names, UINT count, DISPID* ids) const;
    /// `target` is the dual interface.
    HRESULT invoke(void* target, DISPID member, REFIID reserved, WORD flags, DISPPARAMS* parameters,
                   VARIANT* result, EXCEPINFO* exception, UINT* wrongArgument) const;

private:
    ComPtr<ITypeInfo> info_;
};

} // namespace pixmo::com
