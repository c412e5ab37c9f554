#pragma once

#include "faces/com/base/comobject.h"
#include "faces/com/base/variant.h"

#include <functional>
#include <oaidl.h>
#include <string>
#include <vector>

namespace pixmo::com::test {

/// What came of the control's events: "name(argument, ...)" by the numbers of the event interface.
struct EventRecord {
    std::vector<std::string> events;
    /// Acts as the host's handler; it may change what came by reference.
    std::function<void(DISPID, DISPPARAMS&)> handler;
};

class EventSinkPart : public IDispatch {
public:
    using Exposes = Exposed<IDispatch>;

    explicit EventSinkPart(EventRecord& record) : record_(record) {}

    STDMETHODIMP GetTypeInfoCount(UINT* count) override;
    STDMETHODIMP GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) override;
    STDMETHODIMP GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID locale,
                               DISPID* ids) override;
    STDMETHODIMP Invoke(DISPID member, REFIID reserved, LCID locale, WORD flags, DISPPARAMS* parameters,
                        VARIANT* result, EXCEPINFO* exception, UINT* wrongArgument) override;

protected:
    ~EventSinkPart() = default;

private:
    EventRecord& record_;
};

class EventSink final : public ComObject<EventSinkPart> {
public:
    explicit EventSink(EventRecord& record) : ComObject(nullptr, record) {}
};

} // namespace pixmo::com::test
