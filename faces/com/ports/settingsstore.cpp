#include "faces/com/ports/settingsstore.h"

#include "core/base/error.h"
#include "core/base/product.h"
#include "faces/com/base/widetext.h"

namespace pixmo::com {

namespace {

std::wstring keyOf(const std::string& section) {
    return L"Software\\VB and VBA Program Settings\\" + toWide(product::ApplicationName) + L"\\" +
           toWide(section);
}

} // namespace

std::string SettingsStore::GetSetting(const std::string& section, const std::string& key,
                                      const std::string& defaultValue) const {
    const std::wstring path = keyOf(section);
    const std::wstring name = toWide(key);
    std::wstring value;
    DWORD bytes = 0;
    LSTATUS status = ERROR_MORE_DATA;
    // The value may grow between the two questions.
    while (status == ERROR_MORE_DATA) {
        value.resize(bytes / sizeof(wchar_t));
        status = RegGetValueW(HKEY_CURRENT_USER, path.c_str(), name.c_str(), RRF_RT_REG_SZ, nullptr,
                              value.empty() ? nullptr : value.data(), &bytes);
        if (status == ERROR_SUCCESS && value.empty() && bytes > 0)
            status = ERROR_MORE_DATA;
    }
    return status == ERROR_SUCCESS ? toUtf8(value.c_str()) : defaultValue;
}

void SettingsStore::SaveSetting(const std::string& section, const std::string& key,
                                const std::string& value) {
    const std::wstring text = toWide(value);
    const DWORD bytes = static_cast<DWORD>(text.size() + 1) * DWORD{sizeof(wchar_t)};
    if (RegSetKeyValueW(HKEY_CURRENT_USER, keyOf(section).c_str(), toWide(key).c_str(), REG_SZ, text.c_str(),
                        bytes) != ERROR_SUCCESS)
        throw pathFileAccessError();
}

} // namespace pixmo::com
