#include "faces/com/base/connectionpoint.h"

#include "faces/com/base/boundary.h"
#include "faces/com/base/comenum.h"

namespace pixmo::com {

ConnectionPoint::ConnectionPoint(IUnknown& owner, IConnectionPointContainer& container, REFIID outgoing)
    : owner_(owner), container_(container), outgoing_(outgoing) {}

STDMETHODIMP ConnectionPoint::QueryInterface(REFIID iid, void** object) {
    if (!object)
        return E_POINTER;
    *object = nullptr;
    if (!IsEqualIID(iid, IID_IUnknown) && !IsEqualIID(iid, IID_IConnectionPoint))
        return E_NOINTERFACE;
    *object = static_cast<IConnectionPoint*>(this);
    AddRef();
    return S_OK;
}

STDMETHODIMP ConnectionPoint::GetConnectionInterface(IID* iid) {
    if (!iid)
        return E_POINTER;
    *iid = outgoing_;
    return S_OK;
}

STDMETHODIMP ConnectionPoint::GetConnectionPointContainer(IConnectionPointContainer** container) {
    return ComPtr<IConnectionPointContainer>(&container_).copyTo(container);
}

/// A sink that knows no more of the events than their numbers answers as IDispatch.
ComPtr<IUnknown> ConnectionPoint::sinkOf(IUnknown& object) const {
    ComPtr<IUnknown> sink;
    if (FAILED(object.QueryInterface(outgoing_, sink.receiveAny())))
        sink.detach();
    if (!sink && !IsEqualIID(outgoing_, IID_IPropertyNotifySink) &&
        FAILED(object.QueryInterface(IID_IDispatch, sink.receiveAny())))
        sink.detach();
    return sink;
}

STDMETHODIMP ConnectionPoint::Advise(IUnknown* sink, DWORD* cookie) {
    return boundary(IID_IConnectionPoint, "Advise", [&]() -> HRESULT {
        if (!sink || !cookie)
            return E_POINTER;
        *cookie = 0;
        ComPtr<IUnknown> known = sinkOf(*sink);
        if (!known)
            return CONNECT_E_CANNOTCONNECT;
        sinks_.emplace(lastCookie_ + 1, std::move(known));
        *cookie = ++lastCookie_;
        return S_OK;
    });
}

STDMETHODIMP ConnectionPoint::Unadvise(DWORD cookie) {
    // The sink is forgotten before it is released: its end may come back here.
    return sinks_.extract(cookie) ? S_OK : CONNECT_E_NOCONNECTION;
}

STDMETHODIMP ConnectionPoint::EnumConnections(IEnumConnections** connections) {
    return boundary(IID_IConnectionPoint, "EnumConnections", [&]() -> HRESULT {
        if (!connections)
            return E_POINTER;
        std::vector<CONNECTDATA> items;
        for (const auto& [cookie, sink] : sinks_)
            items.push_back({sink.get(), cookie});
        *connections = makeObject<ComEnum<IEnumConnections, CONNECTDATA>>(std::move(items), 0U,
                                                                          ComPtr<IUnknown>(&owner_))
                           .detach();
        return S_OK;
    });
}

} // namespace pixmo::com
