#include "faces/com/control/pagespart.h"

#include "faces/com/control/identifiers.h"

namespace pixmo::com {

STDMETHODIMP PagesPart::GetPages(CAUUID* pages) {
    if (!pages)
        return E_POINTER;
    *pages = {};
    pages->pElems = static_cast<GUID*>(CoTaskMemAlloc(sizeof(GUID)));
    if (!pages->pElems)
        return E_OUTOFMEMORY;
    pages->pElems[0] = ClassOfPage;
    pages->cElems = 1;
    return S_OK;
}

} // namespace pixmo::com
