#pragma once

#include "faces/com/base/comptr.h"

#include <map>
#include <ocidl.h>
#include <utility>
#include <vector>

namespace pixmo::com {

/// One outgoing interface of an object, and the sinks that are connected to it. A part of its object: its
/// references are the object's.
class ConnectionPoint : public IConnectionPoint {
public:
    /// Both outlive the connection point.
    ConnectionPoint(IUnknown& owner, IConnectionPointContainer& container, REFIID outgoing);
    virtual ~ConnectionPoint() = default;
    ConnectionPoint(const ConnectionPoint&) = delete;
    ConnectionPoint& operator=(const ConnectionPoint&) = delete;

    STDMETHODIMP QueryInterface(REFIID iid, void** object) override;
    STDMETHODIMP_(ULONG) AddRef() override { return owner_.AddRef(); }
    STDMETHODIMP_(ULONG) Release() override { return owner_.Release(); }

    STDMETHODIMP GetConnectionInterface(IID* iid) override;
    STDMETHODIMP GetConnectionPointContainer(IConnectionPointContainer** container) override;
    STDMETHODIMP Advise(IUnknown* sink, DWORD* cookie) override;
    STDMETHODIMP Unadvise(DWORD cookie) override;
    STDMETHODIMP EnumConnections(IEnumConnections** connections) override;

    REFIID outgoing() const { return outgoing_; }
    /// Forgets all sinks.
    void disconnect() { std::exchange(sinks_, {}).clear(); }

    /// Calls each sink that is connected now; a sink may disconnect itself or others meanwhile.
    template <class Sink, class Call>
    void forEach(Call&& call) const {
        std::vector<ComPtr<IUnknown>> present;
        for (const auto& [cookie, sink] : sinks_)
            present.push_back(sink);
        for (const auto& sink : present)
            call(*static_cast<Sink*>(sink.get()));
    }

private:
    ComPtr<IUnknown> sinkOf(IUnknown& object) const;

    IUnknown& owner_;
    IConnectionPointContainer& container_;
    const IID outgoing_;
    std::map<DWORD, ComPtr<IUnknown>> sinks_; ///< each as the outgoing interface, by its cookie
    DWORD lastCookie_ = 0;
};

} // namespace pixmo::com
