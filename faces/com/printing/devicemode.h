#pragma once

#include <cstdint>
#include <string>
#include <vector>
#include <windows.h>

namespace pixmo::com {

/// How a printer is set for a job: the system's description of it, with what its driver keeps behind.
class DeviceMode {
public:
    DeviceMode() = default;
    /// As the user has set the printer; empty when there is no such printer.
    explicit DeviceMode(const std::wstring& printer);
    /// A copy of a block that the print dialog has filled.
    explicit DeviceMode(const DEVMODEW& mode);

    bool empty() const { return bytes_.empty(); }
    DEVMODEW* data() { return empty() ? nullptr : reinterpret_cast<DEVMODEW*>(bytes_.data()); }
    const DEVMODEW* data() const {
        return empty() ? nullptr : reinterpret_cast<const DEVMODEW*>(bytes_.data());
    }
    size_t size() const { return bytes_.size(); }

    /// False: the printer does not know it, and all stays as it was.
    bool setPaperSize(const std::wstring& printer, int32_t code);
    bool setCopies(const std::wstring& printer, int32_t copies);

private:
    std::vector<uint8_t> bytes_;
};

} // namespace pixmo::com
