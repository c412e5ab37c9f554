#include "apps/windows/form/eventsink.h"

#include "faces/com/base/boundary.h"

namespace pixmo::form {

STDMETHODIMP EventSinkPart::GetTypeInfoCount(UINT* count) {
    *count = 0;
    return S_OK;
}

// The handler may end the connection, and this sink with it.
STDMETHODIMP EventSinkPart::Invoke(DISPID member, REFIID, LCID, WORD, DISPPARAMS* parameters, VARIANT*,
                                   EXCEPINFO*, UINT*) {
    const com::ComPtr<IDispatch> held(this);
    return com::boundary(IID_IDispatch, "Event", [&]() -> HRESULT {
        handler_(member, *parameters);
        return S_OK;
    });
}

void EventConnection::connect(const com::ComPtr<IConnectionPointContainer>& control, REFIID events,
                              EventHandler handler) {
    com::check(control ? S_OK : E_NOINTERFACE);
    com::check(control->FindConnectionPoint(events, point_.receive()));
    com::check(point_->Advise(&com::makeObject<EventSink>(std::move(handler))->identity(), &cookie_));
}

void EventConnection::disconnect() {
    if (point_)
        point_->Unadvise(cookie_);
    point_.reset();
}

} // namespace pixmo::form
