#include "faces/com/base/dispatcher.h"

#include "faces/com/base/boundary.h"
#include "faces/com/base/typelibrary.h"
#include "faces/com/base/variantreferences.h"

#include <algorithm>
#include <utility>

namespace pixmo::com {

namespace {

/// The description of one member, as long as it is needed.
class FunctionDescription {
public:
    FunctionDescription(ITypeInfo& info, DISPID member, WORD flags) : info_(info) {
        // The index of a member in a dual interface is not counted alike everywhere: so each is looked at.
        for (UINT at = 0; SUCCEEDED(info_.GetFuncDesc(at, &function_)); ++at) {
            if (function_->memid == member && (function_->invkind & flags) != 0)
                return;
            release();
        }
        function_ = nullptr;
    }
    ~FunctionDescription() { release(); }
    FunctionDescription(const FunctionDescription&) = delete;
    FunctionDescription& operator=(const FunctionDescription&) = delete;

    const FUNCDESC* get() const { return function_; }

private:
    void release() {
        if (function_)
            info_.ReleaseFuncDesc(std::exchange(function_, nullptr));
    }

    ITypeInfo& info_;
    FUNCDESC* function_ = nullptr;
};

bool hasVariables(const DISPPARAMS& parameters) {
    return std::any_of(parameters.rgvarg, parameters.rgvarg + parameters.cArgs,
                       [](const VARIANT& argument) { return argument.vt == (VT_BYREF | VT_VARIANT); });
}

/// Scripts know no unsigned numbers.
void makeSigned(VARIANT* result) {
    if (result && result->vt == VT_UI4)
        result->vt = VT_I4;
}

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
    HRESULT status = S_OK;
    if (hasVariables(*parameters)) {
        const FunctionDescription function(*info_, member, flags);
        VariantReferences references(*parameters, function.get(), wrongArgument);
        status =
            info_->Invoke(target, member, flags, references.parameters(), result, exception, wrongArgument);
        if (SUCCEEDED(status))
            references.copyBack();
    } else {
        status = info_->Invoke(target, member, flags, parameters, result, exception, wrongArgument);
    }
    makeSigned(result);
    return status;
}

} // namespace pixmo::com
