#include "faces/com/base/variantreferences.h"

#include "faces/com/base/boundary.h"

namespace pixmo::com {

namespace {

constexpr VARTYPE VariableReference = VT_BYREF | VT_VARIANT;

/// The type that a by-reference parameter refers to; VT_EMPTY when it is no typed reference.
VARTYPE referredType(const ELEMDESC& parameter) {
    if (parameter.tdesc.vt != VT_PTR || !parameter.tdesc.lptdesc)
        return VT_EMPTY;
    const VARTYPE type = parameter.tdesc.lptdesc->vt;
    const bool isPlain = type == VT_I2 || type == VT_I4 || type == VT_BOOL || type == VT_BSTR;
    return isPlain ? type : static_cast<VARTYPE>(VT_EMPTY);
}

} // namespace

VariantReferences::VariantReferences(const DISPPARAMS& given, const FUNCDESC* function, UINT* wrongArgument)
    : arguments_(given.rgvarg, given.rgvarg + given.cArgs), parameters_(given) {
    parameters_.rgvarg = arguments_.data();
    if (!function || given.cNamedArgs > 0)
        return;
    typed_.reserve(given.cArgs);
    // Arguments stand in reverse order.
    for (UINT at = 0; at < given.cArgs && at < static_cast<UINT>(function->cParams); ++at) {
        const UINT position = given.cArgs - 1 - at;
        const VARTYPE type = referredType(function->lprgelemdescParam[at]);
        if (type != VT_EMPTY && arguments_[position].vt == VariableReference)
            replace(position, type, wrongArgument);
    }
}

void VariantReferences::replace(UINT position, VARTYPE type, UINT* wrongArgument) {
    VARIANT& argument = arguments_[position];
    Typed& typed = typed_.emplace_back(Typed{argument.pvarVal, Variant(), &argument});
    check(typed.value.assignFrom(typed.variable));
    if (FAILED(typed.value.convertTo(type))) {
        if (wrongArgument)
            *wrongArgument = position;
        throw Error(static_cast<int32_t>(DISP_E_TYPEMISMATCH), "Type mismatch");
    }
    argument.vt = static_cast<VARTYPE>(VT_BYREF | type);
    argument.byref = &typed.value.get()->lVal;
}

void VariantReferences::copyBack() {
    for (Typed& typed : typed_)
        VariantCopy(typed.variable, typed.value.get());
}

} // namespace pixmo::com
