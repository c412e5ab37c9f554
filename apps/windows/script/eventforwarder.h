#pragma once

#include "faces/com/base/comobject.h"
#include "faces/com/base/variant.h"

#include <oaidl.h>
#include <string>

namespace pixmo::script {

/// Calls a script's procedures for the events of an object: the prefix and the event's name. Arguments that
/// come by reference reach the script as variables of its own, and come back.
class EventForwarderPart : public IDispatch {
public:
    using Exposes = com::Exposed<IDispatch>;

    /// `events` describes the event interface.
    EventForwarderPart(com::ComPtr<IDispatch>& script, com::ComPtr<ITypeInfo>& events, std::wstring& prefix)
        : script_(script), events_(events), prefix_(prefix) {}

    STDMETHODIMP GetTypeInfoCount(UINT* count) override;
    STDMETHODIMP GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) override;
    STDMETHODIMP GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID locale,
                               DISPID* ids) override;
    STDMETHODIMP Invoke(DISPID member, REFIID reserved, LCID locale, WORD flags, DISPPARAMS* parameters,
                        VARIANT* result, EXCEPINFO* exception, UINT* wrongArgument) override;

protected:
    ~EventForwarderPart() = default;

private:
    com::ComPtr<IDispatch> script_;
    com::ComPtr<ITypeInfo> events_;
    std::wstring prefix_;
};

class EventForwarder final : public com::ComObject<EventForwarderPart> {
public:
    EventForwarder(com::ComPtr<IDispatch> script, com::ComPtr<ITypeInfo> events, std::wstring prefix)
        : ComObject(nullptr, script, events, prefix) {}
};

/// From now on the object's default events call the script. Throws when the object has none.
void connectEvents(IUnknown& object, const com::ComPtr<IDispatch>& script, const std::wstring& prefix);

} // namespace pixmo::script
