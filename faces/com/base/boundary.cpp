#include "faces/com/base/boundary.h"

#include "faces/com/base/bstr.h"
#include "faces/com/base/comptr.h"

#include <string>

namespace pixmo::com {

namespace {

/// As the control names its procedures.
constexpr const char* SourcePrefix = "VellaneInet.ImageView.";

constexpr uint32_t FirstControlError = 0x800A0000;
constexpr int32_t LastRuntimeNumber = 0xFFFF;

std::string systemText(HRESULT result) {
    wchar_t text[512] = {};
    const DWORD length =
        FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
                       static_cast<DWORD>(result), 0, text, static_cast<DWORD>(std::size(text)), nullptr);
    std::wstring_view line(text, length);
    while (!line.empty() && line.back() <= L' ')
        line.remove_suffix(1);
    return line.empty() ? "Automation error" : toUtf8(line);
}

} // namespace

HRESULT resultOf(const Error& error) {
    if (error.Number < 0)
        return error.Number;
    if (error.Number == 0 || error.Number > LastRuntimeNumber)
        return E_FAIL;
    return static_cast<HRESULT>(FirstControlError | static_cast<uint32_t>(error.Number));
}

Error errorOf(HRESULT result) {
    return {static_cast<int32_t>(result), systemText(result)};
}

HRESULT report(const Error& error, REFIID interfaceId, const char* procedure) {
    const HRESULT result = resultOf(error);
    ComPtr<ICreateErrorInfo> info;
    if (FAILED(CreateErrorInfo(info.receive())))
        return result;
    try {
        const std::string source =
            error.Source.empty() ? SourcePrefix + std::string(procedure) : error.Source;
        info->SetGUID(interfaceId);
        info->SetSource(Bstr(source).get());
        info->SetDescription(Bstr(error.Description).get());
        info->SetHelpFile(Bstr(error.HelpFile).get());
        info->SetHelpContext(static_cast<DWORD>(error.HelpContext));
        SetErrorInfo(0, info.as<IErrorInfo>().get());
    } catch (...) {
        // Without memory for its description the failure is known by its result alone.
    }
    return result;
}

} // namespace pixmo::com
