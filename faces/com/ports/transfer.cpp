#include "faces/com/ports/transfer.h"

#include "core/base/text.h"
#include "faces/com/base/widetext.h"
#include "faces/com/base/window.h"
#include "faces/com/ports/networkproblem.h"
#include "faces/com/ports/responsehead.h"

#include <array>
#include <cstring>
#include <cwchar>
#include <utility>

namespace pixmo::com {

namespace {

constexpr UINT_PTR StallTimer = 1;
constexpr UINT_PTR ProgressTimer = 2;
constexpr UINT ConcludeMessage = WM_APP;

constexpr DWORD BindFlags = BINDF_ASYNCHRONOUS | BINDF_ASYNCSTORAGE | BINDF_PULLDATA |
                            BINDF_GETNEWESTVERSION | BINDF_NOWRITECACHE | BINDF_PRAGMA_NO_CACHE |
                            BINDF_RESYNCHRONIZE | BINDF_NO_UI | BINDF_SILENTOPERATION;

/// The caller frees it as the system's task memory.
LPWSTR taskText(const std::wstring& text) {
    const size_t bytes = (text.size() + 1) * sizeof(wchar_t);
    auto* const copy = static_cast<LPWSTR>(CoTaskMemAlloc(bytes));
    if (copy)
        std::wmemcpy(copy, text.c_str(), text.size() + 1);
    return copy;
}

} // namespace

/// The transfer's own place in the message loop.
class Transfer::Clock : public Window {
public:
    explicit Clock(Transfer& owner) : owner_(owner) { make({L"Pixmo.Transfer"}, {HWND_MESSAGE}); }

    void restart(UINT_PTR timer, int32_t milliseconds) const {
        SetTimer(handle(), timer, static_cast<UINT>(milliseconds), nullptr);
    }
    bool stop(UINT_PTR timer) const { return KillTimer(handle(), timer) != 0; }
    void postConclusion() const { PostMessageW(handle(), ConcludeMessage, 0, 0); }

    bool progressPauses = false;

private:
    std::optional<LRESULT> onMessage(UINT message, WPARAM wParam, LPARAM) override {
        if (message != WM_TIMER && message != ConcludeMessage)
            return std::nullopt;
        // A report may be the end of everything that holds the transfer.
        const ComPtr<Transfer> held(&owner_);
        if (message == ConcludeMessage)
            owner_.onConcluded();
        else if (wParam == StallTimer)
            owner_.onStalled();
        else
            owner_.onProgressPause();
        return 0;
    }

    Transfer& owner_;
};

Transfer::Transfer(const AsyncRequest& request, const TransferLimits& limits, Report progress,
                   Report completed)
    : download_(request, limits), progress_(std::move(progress)), completed_(std::move(completed)),
      clock_(std::make_shared<Clock>(*this)) {}

Transfer::~Transfer() {
    clock_->destroy();
}

// The moniker may answer at once, from inside of the call that starts it.
void Transfer::start() {
    const ComPtr<Transfer> held(this);
    alive();
    const HRESULT result = bind();
    if (FAILED(result) && !over_)
        OnStopBinding(result, nullptr);
}

HRESULT Transfer::bind() {
    ComPtr<IMoniker> moniker;
    ComPtr<IUri> address;
    // The target travels byte for byte.
    constexpr DWORD AsItStands = Uri_CREATE_NO_CANONICALIZE | Uri_CREATE_NO_DECODE_EXTRA_INFO;
    HRESULT result = CreateUri(toWide(download_.request().Target).c_str(), AsItStands, 0, address.receive());
    if (SUCCEEDED(result))
        result = CreateURLMonikerEx2(nullptr, address.get(), moniker.receive(), URL_MK_UNIFORM);
    ComPtr<IBindCtx> context;
    if (SUCCEEDED(result))
        result = CreateAsyncBindCtx(0, this, nullptr, context.receive());
    if (FAILED(result))
        return result;
    ComPtr<IStream> stream;
    return moniker->BindToStorage(context.get(), nullptr, IID_IStream, stream.receiveAny());
}

void Transfer::cancel() {
    // What was reported belongs to the listener.
    if (!std::exchange(completed_, nullptr))
        return;
    const ComPtr<Transfer> held(this);
    over_ = true;
    progress_ = nullptr;
    stopBinding();
    download_.discard();
}

void Transfer::stopBinding() {
    clock_->destroy();
    if (const ComPtr<IBinding> binding = std::exchange(binding_, nullptr))
        binding->Abort();
}

void Transfer::alive() {
    if (!over_)
        clock_->restart(StallTimer, download_.limits().stallMilliseconds);
}

void Transfer::onStalled() {
    download_.stalled();
    conclude();
}

void Transfer::onProgressPause() {
    clock_->stop(ProgressTimer);
    clock_->progressPauses = false;
    if (const Report progress = progress_)
        progress(download_);
}

// The report comes in a message of its own: never from inside of the call that started the transfer, and not
// from inside of the moniker's code, which a listener might end.
void Transfer::conclude() {
    if (std::exchange(over_, true))
        return;
    clock_->stop(StallTimer);
    clock_->stop(ProgressTimer);
    clock_->postConclusion();
}

void Transfer::onConcluded() {
    stopBinding();
    progress_ = nullptr;
    if (const Report completed = std::exchange(completed_, nullptr))
        completed(download_);
}

STDMETHODIMP Transfer::QueryInterface(REFIID iid, void** object) {
    if (!object)
        return E_POINTER;
    *object = nullptr;
    if (IsEqualIID(iid, IID_IUnknown) || IsEqualIID(iid, IID_IBindStatusCallback))
        *object = static_cast<IBindStatusCallback*>(this);
    else if (IsEqualIID(iid, IID_IHttpNegotiate))
        *object = static_cast<IHttpNegotiate*>(this);
    else
        return E_NOINTERFACE;
    AddRef();
    return S_OK;
}

STDMETHODIMP_(ULONG) Transfer::AddRef() {
    return static_cast<ULONG>(InterlockedIncrement(&references_));
}

STDMETHODIMP_(ULONG) Transfer::Release() {
    const LONG left = InterlockedDecrement(&references_);
    if (left == 0)
        delete this;
    return static_cast<ULONG>(left);
}

STDMETHODIMP Transfer::OnStartBinding(DWORD, IBinding* binding) {
    binding_ = ComPtr<IBinding>(binding);
    return S_OK;
}

STDMETHODIMP Transfer::GetPriority(LONG*) {
    return E_NOTIMPL;
}

STDMETHODIMP Transfer::OnLowResource(DWORD) {
    return S_OK;
}

STDMETHODIMP Transfer::OnProgress(ULONG, ULONG, ULONG code, LPCWSTR text) {
    if (over_)
        return S_OK;
    alive();
    if (code == BINDSTATUS_REDIRECTING)
        download_.redirected(toUtf8(text ? text : L""));
    if (download_.failed())
        conclude();
    return S_OK;
}

STDMETHODIMP Transfer::OnStopBinding(HRESULT result, LPCWSTR) {
    DWORD detail = 0;
    if (const ComPtr<IBinding> binding = std::exchange(binding_, nullptr)) {
        CLSID protocol{};
        LPOLESTR text = nullptr;
        if (SUCCEEDED(binding->GetBindResult(&protocol, &detail, &text, nullptr)))
            CoTaskMemFree(text);
    }
    if (over_)
        return S_OK;
    download_.ended(networkProblem(result, detail), "The transfer failed.");
    conclude();
    return S_OK;
}

STDMETHODIMP Transfer::GetBindInfo(DWORD* flags, BINDINFO* info) {
    if (!flags || !info)
        return E_POINTER;
    *flags = BindFlags;
    const DWORD size = info->cbSize;
    std::memset(info, 0, size);
    info->cbSize = size;
    info->dwBindVerb = BINDVERB_GET;
    return S_OK;
}

STDMETHODIMP Transfer::OnDataAvailable(DWORD, DWORD, FORMATETC*, STGMEDIUM* medium) {
    if (over_ || !medium || medium->tymed != TYMED_ISTREAM || !medium->pstm)
        return S_OK;
    alive();
    receive(*medium->pstm);
    if (download_.failed()) {
        conclude();
    } else if (!std::exchange(clock_->progressPauses, true)) {
        clock_->restart(ProgressTimer, Download::ProgressMilliseconds);
    }
    return S_OK;
}

/// What has come so far; the stream says S_FALSE at its end and E_PENDING when more will come.
void Transfer::receive(IStream& stream) {
    std::array<uint8_t, 32'768> buffer{};
    HRESULT result = S_OK;
    while (result == S_OK && !download_.failed()) {
        ULONG count = 0;
        result = stream.Read(buffer.data(), static_cast<ULONG>(buffer.size()), &count);
        if (count > 0)
            download_.received(std::span(buffer).first(count));
        else if (result == S_OK)
            break;
    }
}

STDMETHODIMP Transfer::OnObjectAvailable(REFIID, IUnknown*) {
    return S_OK;
}

STDMETHODIMP Transfer::BeginningTransaction(LPCWSTR, LPCWSTR, DWORD, LPWSTR* additional) {
    if (!additional)
        return E_POINTER;
    std::string lines;
    for (const auto& [name, value] : requestHeaders())
        lines.append(name).append(": ").append(value).append(LineBreak);
    *additional = taskText(toWide(lines));
    return *additional ? S_OK : E_OUTOFMEMORY;
}

STDMETHODIMP Transfer::OnResponse(DWORD status, LPCWSTR headers, LPCWSTR, LPWSTR* again) {
    if (again)
        *again = nullptr;
    if (over_)
        return S_OK;
    alive();
    const ResponseHead head = readResponseHead(toUtf8(headers ? headers : L""));
    download_.answered(static_cast<int32_t>(status), head.phrase, head.bodySize);
    return S_OK;
}

} // namespace pixmo::com
