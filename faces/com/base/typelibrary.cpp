#include "faces/com/base/typelibrary.h"

#include "faces/com/base/boundary.h"
#include "faces/com/base/module.h"

namespace pixmo::com {

ComPtr<ITypeLib> loadTypeLibrary() {
    ComPtr<ITypeLib> library;
    check(LoadTypeLibEx(module::path().c_str(), REGKIND_NONE, library.receive()));
    return library;
}

ComPtr<ITypeInfo> typeInfoOf(REFGUID described) {
    ComPtr<ITypeInfo> info;
    check(loadTypeLibrary()->GetTypeInfoOfGuid(described, info.receive()));
    return info;
}

} // namespace pixmo::com
