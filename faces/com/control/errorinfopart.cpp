#include "faces/com/control/errorinfopart.h"

#include <algorithm>
#include <array>

namespace pixmo::com {

STDMETHODIMP ErrorInfoPart::InterfaceSupportsErrorInfo(REFIID iid) {
    const std::array described{IID_IImageView, IID_IDispatch, IID_IPersistPropertyBag, IID_IPersistStreamInit,
                               IID_IPersistStorage};
    const bool isDescribed =
        std::ranges::any_of(described, [&](const IID& known) { return IsEqualIID(known, iid); });
    return isDescribed ? S_OK : S_FALSE;
}

} // namespace pixmo::com
