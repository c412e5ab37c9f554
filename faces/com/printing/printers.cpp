#include "faces/com/printing/printers.h"

#include "faces/com/base/dialogcloser.h"
#include "faces/com/base/widetext.h"
#include "faces/com/printing/printchoice.h"
#include "faces/com/printing/printerdevice.h"

#include <winspool.h>

namespace pixmo::com {

std::vector<std::string> Printers::names() const {
    constexpr DWORD Which = PRINTER_ENUM_LOCAL | PRINTER_ENUM_CONNECTIONS;
    std::vector<uint8_t> bytes;
    DWORD size = 0;
    DWORD count = 0;
    // One may be added between the two questions.
    while (!EnumPrintersW(Which, nullptr, 2, bytes.data(), static_cast<DWORD>(bytes.size()), &size, &count)) {
        if (GetLastError() != ERROR_INSUFFICIENT_BUFFER || size <= bytes.size())
            return {};
        bytes.resize(size);
    }
    std::vector<std::string> names;
    const auto* const printers = reinterpret_cast<const PRINTER_INFO_2W*>(bytes.data());
    for (DWORD i = 0; i < count; ++i)
        names.push_back(toUtf8(printers[i].pPrinterName));
    return names;
}

std::string Printers::currentName() const {
    if (!current_.empty())
        return current_;
    DWORD length = 0;
    GetDefaultPrinterW(nullptr, &length);
    std::wstring name(length, L'\0');
    if (length == 0 || !GetDefaultPrinterW(name.data(), &length))
        return {};
    return toUtf8(name.c_str());
}

void Printers::setCurrent(const std::string& name) {
    current_ = name;
}

std::optional<std::string> Printers::choose(intptr_t, int32_t flags) {
    if (!link_->host())
        return std::nullopt;
    const SharedFaceLink link = link_;
    const ModalScope scope(link);
    const DialogCloser closer(*link);
    const std::string current = currentName();
    const DeviceMode mode = chosen_ == current ? mode_ : DeviceMode(toWide(current));
    const auto choice = askForPrinter(closer.owner(), toWide(current), mode, static_cast<DWORD>(flags));
    if (!choice)
        return std::nullopt;
    chosen_ = toUtf8(choice->printer);
    mode_ = choice->mode;
    return chosen_;
}

std::unique_ptr<pixmo::PrinterDevice> Printers::open() {
    const std::string name = currentName();
    if (name.empty())
        return nullptr;
    const std::wstring printer = toWide(name);
    auto device = std::make_unique<PrinterDevice>(printer, chosen_ == name ? mode_ : DeviceMode(printer));
    return device->isOpen() ? std::move(device) : nullptr;
}

} // namespace pixmo::com
