#pragma once

#include "core/base/error.h"

#include <windows.h>

namespace pixmo::com {

/// The result that stands for a failure: a number of the host runtime in the facility of controls, any other
/// number as it is.
HRESULT resultOf(const Error& error);

/// The failure that a result stands for, with the system's own text.
Error errorOf(HRESULT result);

/// Leaves the failure for whoever called the interface, and answers its result.
HRESULT report(const Error& error, REFIID interfaceId, const char* procedure);

/// Where calls from a host enter: nothing is thrown out of it. A failure that is thrown becomes a result,
/// described by error information whose source is the procedure.
template <class Body>
HRESULT boundary(REFIID interfaceId, const char* procedure, Body&& body) noexcept {
    try {
        return body();
    } catch (...) {
        return report(currentError(), interfaceId, procedure);
    }
}

/// Throws what a failed result stands for.
inline void check(HRESULT result) {
    if (FAILED(result))
        throw errorOf(result);
}

/// Throws for a place that a caller has to give and did not.
template <class Pointer>
void checkPointer(Pointer pointer) {
    if (!pointer)
        throw Error(static_cast<int32_t>(E_POINTER), "Invalid pointer");
}

} // namespace pixmo::com
