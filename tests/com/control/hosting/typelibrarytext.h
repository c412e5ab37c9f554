#pragma once

#include <oaidl.h>
#include <string>

namespace pixmo::com::test {

/// What clients of the library are compiled against, one item a line: identities, numbers, signatures.
std::string describe(ITypeLib& library);

/// The names of all that has no help text.
std::string undocumented(ITypeLib& library);

} // namespace pixmo::com::test
