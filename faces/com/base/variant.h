#pragma once

#include "faces/com/base/bstr.h"
#include "faces/com/base/comptr.h"

#include <cstdint>
#include <oleauto.h>
#include <string_view>
#include <utility>

namespace pixmo::com {

/// Owns one value of Automation.
class Variant {
public:
    Variant() { VariantInit(&value_); }
    explicit Variant(bool flag) : Variant() {
        value_.vt = VT_BOOL;
        value_.boolVal = flag ? VARIANT_TRUE : VARIANT_FALSE;
    }
    explicit Variant(int16_t number) : Variant() {
        value_.vt = VT_I2;
        value_.iVal = number;
    }
    explicit Variant(int32_t number) : Variant() {
        value_.vt = VT_I4;
        value_.lVal = number;
    }
    explicit Variant(std::string_view utf8) : Variant() {
        value_.bstrVal = Bstr(utf8).detach();
        value_.vt = VT_BSTR;
    }
    explicit Variant(IUnknown* object) : Variant() {
        value_.vt = VT_UNKNOWN;
        value_.punkVal = ComPtr<IUnknown>(object).detach();
    }
    explicit Variant(IDispatch* object) : Variant() {
        value_.vt = VT_DISPATCH;
        value_.pdispVal = ComPtr<IDispatch>(object).detach();
    }
    Variant(Variant&& other) noexcept : value_(other.value_) { VariantInit(&other.value_); }
    Variant& operator=(Variant&& other) noexcept {
        std::swap(value_, other.value_);
        return *this;
    }
    ~Variant() { VariantClear(&value_); }

    VARIANT* get() { return &value_; }
    const VARIANT* get() const { return &value_; }
    VARTYPE type() const { return value_.vt; }
    VARIANT* receive() {
        VariantClear(&value_);
        return &value_;
    }

    /// A copy without references: what a by-reference value refers to. Hosts may keep theirs anywhere, also
    /// where the compiler would not.
    HRESULT assignFrom(const VARIANT* source) {
        return VariantCopyInd(receive(), const_cast<VARIANT*>(source));
    }
    HRESULT convertTo(VARTYPE type) { return VariantChangeType(&value_, &value_, VARIANT_ALPHABOOL, type); }

    /// The object, when the value is one; else null.
    ComPtr<IUnknown> object() const {
        const bool holdsObject = value_.vt == VT_UNKNOWN || value_.vt == VT_DISPATCH;
        return holdsObject ? ComPtr<IUnknown>(value_.punkVal) : ComPtr<IUnknown>();
    }

private:
    VARIANT value_;
};

} // namespace pixmo::com
