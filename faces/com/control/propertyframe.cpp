#include "faces/com/control/propertyframe.h"

#include "faces/com/control/identifiers.h"

#include <olectl.h>

namespace pixmo::com {

HRESULT showPropertyFrame(ControlContext& context, HWND parent) {
    if (context.host().showsProperties())
        return S_OK;
    CLSID page = ClassOfPage;
    IUnknown* object = &context.known();
    context.enableModeless(false);
    const HRESULT result =
        OleCreatePropertyFrame(parent ? parent : context.ownerWindow(), 0, 0, L"Image Viewer", 1, &object, 1,
                               &page, context.host().locale(), 0, nullptr);
    context.enableModeless(true);
    return result;
}

} // namespace pixmo::com
