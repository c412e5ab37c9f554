#pragma once

#include "faces/com/base/comobject.h"

#include <functional>
#include <oaidl.h>
#include <ocidl.h>

namespace pixmo::form {

/// Gets an event's number and its arguments, the last one first; it may change what comes by reference.
using EventHandler = std::function<void(DISPID event, DISPPARAMS& arguments)>;

/// Hears the events of a control late bound. A failure of the handler is the control's to see.
class EventSinkPart : public IDispatch {
public:
    using Exposes = com::Exposed<IDispatch>;
    explicit EventSinkPart(EventHandler& handler) : handler_(handler) {}

    STDMETHODIMP GetTypeInfoCount(UINT* count) override;
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
    STDMETHODIMP Invoke(DISPID member, REFIID reserved, LCID locale, WORD flags, DISPPARAMS* parameters,
                        VARIANT* result, EXCEPINFO* exception, UINT* wrongArgument) override;

protected:
    ~EventSinkPart() = default;

private:
    const EventHandler handler_;
};

class EventSink final : public com::ComObject<EventSinkPart> {
public:
    explicit EventSink(EventHandler handler) : ComObject(nullptr, handler) {}
};

/// The connection of a sink to a control's events, until it ends.
class EventConnection {
public:
    EventConnection() = default;
    ~EventConnection() { disconnect(); }
    EventConnection(const EventConnection&) = delete;
    EventConnection& operator=(const EventConnection&) = delete;

    /// Throws when the control has no such events.
    void connect(const com::ComPtr<IConnectionPointContainer>& control, REFIID events, EventHandler handler);
    void disconnect();

private:
    com::ComPtr<IConnectionPoint> point_;
    DWORD cookie_ = 0;
};

} // namespace pixmo::form
