#pragma once

#include "faces/com/base/variant.h"

#include <oaidl.h>
#include <vector>

namespace pixmo::com {

/// The arguments of one call. A script's variable is a by-reference variant; where the called procedure has
/// a typed by-reference parameter, a value of that type takes its place and is copied back afterwards.
class VariantReferences {
public:
    /// `function` describes the procedure in dispatch form. Throws type mismatch when a variable's value
    /// cannot be had in the parameter's type; `wrongArgument` then tells which.
    VariantReferences(const DISPPARAMS& given, const FUNCDESC* function, UINT* wrongArgument);
    VariantReferences(const VariantReferences&) = delete;
    VariantReferences& operator=(const VariantReferences&) = delete;

    DISPPARAMS* parameters() { return &parameters_; }
    /// Into the script's variables.
    void copyBack();

private:
    struct Typed {
        VARIANT* variable;
        Variant value;
        VARIANT* argument;
    };

    void replace(UINT position, VARTYPE type, UINT* wrongArgument);

    std::vector<VARIANT> arguments_;
    std::vector<Typed> typed_;
    DISPPARAMS parameters_;
};

} // namespace pixmo::com
