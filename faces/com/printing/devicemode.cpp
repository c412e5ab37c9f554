#include "faces/com/printing/devicemode.h"

#include <algorithm>
#include <limits>
#include <memory>
#include <type_traits>
#include <winspool.h>

namespace pixmo::com {

namespace {

struct ClosePrinterHandle {
    void operator()(HANDLE printer) const { ClosePrinter(printer); }
};

using PrinterHandle = std::unique_ptr<std::remove_pointer_t<HANDLE>, ClosePrinterHandle>;

PrinterHandle openPrinter(const std::wstring& name) {
    HANDLE handle = nullptr;
    std::wstring writable = name;
    return PrinterHandle(OpenPrinterW(writable.data(), &handle, nullptr) ? handle : nullptr);
}

/// Papers by their codes.
std::vector<WORD> papersOf(const std::wstring& printer) {
    const int count =
        static_cast<int>(DeviceCapabilitiesW(printer.c_str(), nullptr, DC_PAPERS, nullptr, nullptr));
    std::vector<WORD> codes(static_cast<size_t>(std::max(count, 0)));
    if (!codes.empty())
        DeviceCapabilitiesW(printer.c_str(), nullptr, DC_PAPERS, reinterpret_cast<LPWSTR>(codes.data()),
                            nullptr);
    return codes;
}

} // namespace

DeviceMode::DeviceMode(const std::wstring& printer) {
    const PrinterHandle handle = openPrinter(printer);
    if (!handle)
        return;
    std::wstring name = printer;
    const LONG size = DocumentPropertiesW(nullptr, handle.get(), name.data(), nullptr, nullptr, 0);
    if (size <= 0)
        return;
    bytes_.resize(static_cast<size_t>(size));
    if (DocumentPropertiesW(nullptr, handle.get(), name.data(), data(), nullptr, DM_OUT_BUFFER) != IDOK)
        bytes_.clear();
}

DeviceMode::DeviceMode(const DEVMODEW& mode) {
    const auto* const bytes = reinterpret_cast<const uint8_t*>(&mode);
    bytes_.assign(bytes, bytes + mode.dmSize + mode.dmDriverExtra);
}

bool DeviceMode::setPaperSize(const std::wstring& printer, int32_t code) {
    const std::vector<WORD> papers = papersOf(printer);
    if (empty() || std::find(papers.begin(), papers.end(), code) == papers.end())
        return false;
    DEVMODEW& mode = *data();
    mode.dmPaperSize = static_cast<short>(code);
    mode.dmFields |= DM_PAPERSIZE;
    mode.dmFields &= ~static_cast<DWORD>(DM_PAPERLENGTH | DM_PAPERWIDTH | DM_FORMNAME);
    return true;
}

bool DeviceMode::setCopies(const std::wstring& printer, int32_t copies) {
    const auto most =
        static_cast<int32_t>(DeviceCapabilitiesW(printer.c_str(), nullptr, DC_COPIES, nullptr, nullptr));
    if (empty() || copies < 1 || copies > most || copies > std::numeric_limits<short>::max())
        return false;
    data()->dmCopies = static_cast<short>(copies);
    data()->dmFields |= DM_COPIES;
    return true;
}

} // namespace pixmo::com
