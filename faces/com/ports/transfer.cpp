#include "faces/com/ports/transfer.h"

#include "core/base/text.h"
#include "faces/com/base/widetext.h"
#include "faces/com/ports/networkproblem.h"
#include "faces/com/ports/responsehead.h"

#include <array>
#include <cstring>
#include <cwchar>
#include <utility>

namespace pixmo::com {

namespace {

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

// The moniker may answer at once, from inside of the call that starts it.
void Transfer::start(const std::string& target) {
    const ComPtr<Transfer> held(this);
    const HRESULT result = bind(target);
    if (FAILED(result))
        OnStopBinding(result, nullptr);
}

void Transfer::stop() {
    listener_ = nullptr;
    if (const ComPtr<IBinding> binding = std::exchange(binding_, nullptr))
        binding->Abort();
}

HRESULT Transfer::bind(const std::string& target) {
    ComPtr<IMoniker> moniker;
    ComPtr<IUri> address;
    // The target travels byte for byte.
    constexpr DWORD AsItStands = Uri_CREATE_NO_CANONICALIZE | Uri_CREATE_NO_DECODE_EXTRA_INFO;
    HRESULT result = CreateUri(toWide(target).c_str(), AsItStands, 0, address.receive());
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
    if (!listener_)
        return S_OK;
    if (code == BINDSTATUS_REDIRECTING)
        listener_->redirected(toUtf8(text ? text : L""));
    else
        listener_->alive();
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
    if (listener_)
        listener_->ended(networkProblem(result, detail), "The transfer failed.");
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
    if (listener_ && medium && medium->tymed == TYMED_ISTREAM && medium->pstm)
        receive(*medium->pstm);
    return S_OK;
}

/// What has come so far; the stream says S_FALSE at its end and E_PENDING when more will come.
void Transfer::receive(IStream& stream) {
    std::array<uint8_t, 32'768> buffer{};
    HRESULT result = S_OK;
    while (result == S_OK) {
        ULONG count = 0;
        result = stream.Read(buffer.data(), static_cast<ULONG>(buffer.size()), &count);
        if (count > 0)
            listener_->received(std::span(buffer).first(count));
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
    const ResponseHead head = readResponseHead(toUtf8(headers ? headers : L""));
    if (listener_)
        listener_->answered(static_cast<int32_t>(status), head.phrase, head.bodySize);
    return S_OK;
}

} // namespace pixmo::com
