#include "faces/com/control/connectionspart.h"

#include "faces/com/base/comenum.h"

namespace pixmo::com {

STDMETHODIMP ConnectionsPart::EnumConnectionPoints(IEnumConnectionPoints** points) {
    return call("EnumConnectionPoints", [&] {
        checkPointer(points);
        const auto all = context_.sinks().points();
        *points = makeObject<ComEnum<IEnumConnectionPoints, IConnectionPoint*>>(
                      std::vector<IConnectionPoint*>(all.begin(), all.end()))
                      .detach();
        return S_OK;
    });
}

STDMETHODIMP ConnectionsPart::FindConnectionPoint(REFIID iid, IConnectionPoint** point) {
    if (!point)
        return E_POINTER;
    *point = nullptr;
    for (ConnectionPoint* candidate : context_.sinks().points())
        if (IsEqualIID(iid, candidate->outgoing()))
            return ComPtr<IConnectionPoint>(candidate).copyTo(point);
    return CONNECT_E_NOCONNECTION;
}

} // namespace pixmo::com
