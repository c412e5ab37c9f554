#pragma once

#include "core/control/networkreader.h"
#include "faces/com/base/comptr.h"

#include <string>
#include <urlmon.h>

namespace pixmo::com {

/// One request by a URL moniker, and what the moniker calls back. The moniker alone would wait for ever for a
/// server that has fallen silent, follow redirections without end, and take an error page for the answer:
/// that is the listener's to watch.
class Transfer final : public IBindStatusCallback, public IHttpNegotiate {
public:
    explicit Transfer(ConnectionListener& listener) : listener_(&listener) {}
    virtual ~Transfer() = default;
    Transfer(const Transfer&) = delete;
    Transfer& operator=(const Transfer&) = delete;

    void start(const std::string& target);
    /// The listener hears no more.
    void stop();

    STDMETHODIMP QueryInterface(REFIID iid, void** object) override;
    STDMETHODIMP_(ULONG) AddRef() override;
    STDMETHODIMP_(ULONG) Release() override;

    STDMETHODIMP OnStartBinding(DWORD reserved, IBinding* binding) override;
    STDMETHODIMP GetPriority(LONG* priority) override;
    STDMETHODIMP OnLowResource(DWORD reserved) override;
    STDMETHODIMP OnProgress(ULONG done, ULONG all, ULONG code, LPCWSTR text) override;
    STDMETHODIMP OnStopBinding(HRESULT result, LPCWSTR text) override;
    STDMETHODIMP GetBindInfo(DWORD* flags, BINDINFO* info) override;
    STDMETHODIMP OnDataAvailable(DWORD flags, DWORD size, FORMATETC* format, STGMEDIUM* medium) override;
    STDMETHODIMP OnObjectAvailable(REFIID iid, IUnknown* object) override;

    STDMETHODIMP BeginningTransaction(LPCWSTR address, LPCWSTR headers, DWORD reserved,
                                      LPWSTR* additional) override;
    STDMETHODIMP OnResponse(DWORD status, LPCWSTR headers, LPCWSTR requestHeaders, LPWSTR* again) override;

private:
    HRESULT bind(const std::string& target);
    void receive(IStream& stream);

    LONG references_ = 1;
    ConnectionListener* listener_; ///< nullptr once it was stopped
    ComPtr<IBinding> binding_;
};

} // namespace pixmo::com
