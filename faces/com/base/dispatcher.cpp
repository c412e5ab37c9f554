#include "faces/com/base/dispatcher.h"

#include "faces/com/base/boundary.h"
#include "faces/com/base/typelibrary.h"
#include "faces/com/base/variantreferences.h"

namespace pixmo::com {

namespace {

/// The description of one member, as long as it is needed.
class FunctionDescription {
public:
    FunctionDescription(ITypeInfo& info, DISPID member, WORD flags) : info_(info) {
        ComPtr<ITypeInfo2> byMember = ComPtr<ITypeInfo>(&info).as<ITypeInfo2>();
        UINT index = 0;
        if (byMember && SUCCEEDED(byMember->GetFuncIndexOfMemId(
                            member, static_cast<INVOKEKIND>(flags & INVOKE_FUNC), &index)))
            info_.GetFuncDesc(index, &function_);
    }
    ~FunctionDescription() {
        if (function_)
            info_.ReleaseFuncDesc(function_);
    }
    FunctionDescription(const FunctionDescription&) = delete;
    FunctionDescription& operator=(const FunctionDescription&) = delete;

    const FUNCDESC* get() const { return function_; }

private:
    ITypeInfo& info_;
    FUNCDESC* function_ = nullptr;
};

} // namespace

Dispatcher::Dispatcher(REFIID interfaceId) : info_(typeInfoOf(interfaceId)) {}

HRESULT Dispatcher::typeInfo(UINT index, ITypeInfo** info) const {
    if (!info)
        return E_POINTER;
    *info = nullptr;
    return index == 0 ? info_.copyTo(info) : DISP_E_BADINDEX;
}

HRESULT Dispatcher::idsOfNames(REFIID reserved, LPOLESTR* names, UINT count, DISPID* ids) const {
    if (!IsEqualIID(reserved, IID_NULL))
        return DISP_E_UNKNOWNINTERFACE;
    return names && ids ? info_->GetIDsOfNames(names, count, ids) : E_POINTER;
}

HRESULT Dispatcher::invoke(void* target, DISPID member, REFIID reserved, WORD flags, DISPPARAMS* parameters,
                           VARIANT* result, EXCEPINFO* exception, UINT* wrongArgument) const {
    if (!IsEqualIID(reserved, IID_NULL))
        return DISP_E_UNKNOWNINTERFACE;
    if (!parameters)
        return E_POINTER;
    // What an earlier call left is none of this one's failures.
    SetErrorInfo(0, nullptr);
    const FunctionDescription function(*info_.get(), member, flags);
    VariantReferences references(*parameters, function.get(), wrongArgument);
    const HRESULT status =
        info_->Invoke(target, member, flags, references.parameters(), result, exception, wrongArgument);
    if (SUCCEEDED(status))
        references.copyBack();
    return status;
}

} // namespace pixmo::com
