#pragma once

#include "core/control/download.h"
#include "faces/com/base/comptr.h"

#include <functional>
#include <memory>
#include <string_view>
#include <urlmon.h>

namespace pixmo::com {

/// One download by a URL moniker, and what the moniker calls back. Reports from the message loop only, and
/// may be cancelled inside of its reports. The moniker alone would wait for ever for a server that has fallen
/// silent, follow redirections without end, and take an error page for the answer: that is watched here.
class Transfer final : public IBindStatusCallback, public IHttpNegotiate {
public:
    using Report = std::function<void(Download&)>;

    /// Throws as a Download does.
    Transfer(const AsyncRequest& request, const TransferLimits& limits, Report progress, Report completed);
    virtual ~Transfer();
    Transfer(const Transfer&) = delete;
    Transfer& operator=(const Transfer&) = delete;

    void start();
    /// Nothing more is reported, and no file is left.
    void cancel();

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
    class Clock;

    HRESULT bind();
    void receive(IStream& stream);
    void alive();
    void onStalled();
    void onProgressPause();
    void conclude();
    void onConcluded();
    void stopBinding();

    LONG references_ = 1;
    Download download_;
    Report progress_;
    Report completed_;
    std::shared_ptr<Clock> clock_;
    ComPtr<IBinding> binding_;
    bool over_ = false; ///< only the report is outstanding
};

} // namespace pixmo::com
