#include "faces/com/base/registration.h"

#include <memory>
#include <type_traits>

namespace pixmo::com {

namespace {

constexpr std::wstring_view Classes = L"Software\\Classes";

struct CloseKey {
    void operator()(HKEY key) const { RegCloseKey(key); }
};
using Key = std::unique_ptr<std::remove_pointer_t<HKEY>, CloseKey>;

std::wstring fullPath(const std::wstring& key) {
    return std::wstring(Classes) + L'\\' + key;
}

LSTATUS writeRow(HKEY root, const RegistryRow& row) {
    HKEY handle = nullptr;
    const LSTATUS status =
        RegCreateKeyExW(root, fullPath(row.key).c_str(), 0, nullptr, 0, KEY_WRITE, nullptr, &handle, nullptr);
    const Key key(handle);
    if (status != ERROR_SUCCESS || !row.hasValue)
        return status;
    return RegSetValueExW(key.get(), row.name.c_str(), 0, REG_SZ,
                          reinterpret_cast<const BYTE*>(row.value.c_str()),
                          static_cast<DWORD>(row.value.size() + 1) * DWORD{sizeof(wchar_t)});
}

bool isEmpty(HKEY key) {
    DWORD keys = 0;
    DWORD values = 0;
    return RegQueryInfoKeyW(key, nullptr, nullptr, nullptr, &keys, nullptr, nullptr, &values, nullptr,
                            nullptr, nullptr, nullptr) == ERROR_SUCCESS &&
           keys == 0 && values == 0;
}

LSTATUS openKey(HKEY root, const std::wstring& path, Key& key) {
    HKEY handle = nullptr;
    const LSTATUS status = RegOpenKeyExW(root, path.c_str(), 0, KEY_READ | KEY_WRITE, &handle);
    key.reset(handle);
    return status;
}

/// From the key upwards, up to but not including the root of all classes.
LSTATUS removeEmptyKeys(HKEY root, std::wstring path) {
    while (path.size() > Classes.size()) {
        Key key;
        const LSTATUS opened = openKey(root, path, key);
        if (opened != ERROR_SUCCESS && opened != ERROR_FILE_NOT_FOUND)
            return opened;
        if (key && !isEmpty(key.get()))
            return ERROR_SUCCESS;
        key.reset();
        if (opened == ERROR_SUCCESS)
            if (const LSTATUS removed = RegDeleteKeyW(root, path.c_str()); removed != ERROR_SUCCESS)
                return removed;
        path.resize(path.find_last_of(L'\\'));
    }
    return ERROR_SUCCESS;
}

LSTATUS removeRow(HKEY root, const RegistryRow& row) {
    const std::wstring path = fullPath(row.key);
    Key key;
    const LSTATUS opened = openKey(root, path, key);
    if (opened != ERROR_SUCCESS)
        return opened == ERROR_FILE_NOT_FOUND ? ERROR_SUCCESS : opened;
    if (row.hasValue) {
        const LSTATUS removed = RegDeleteValueW(key.get(), row.name.c_str());
        if (removed != ERROR_SUCCESS && removed != ERROR_FILE_NOT_FOUND)
            return removed;
    }
    key.reset();
    return removeEmptyKeys(root, path);
}

} // namespace

HRESULT writeRegistry(HKEY root, std::span<const RegistryRow> rows) {
    for (const RegistryRow& row : rows) {
        const LSTATUS status = writeRow(root, row);
        if (status == ERROR_SUCCESS)
            continue;
        removeFromRegistry(root, rows);
        return HRESULT_FROM_WIN32(static_cast<DWORD>(status));
    }
    return S_OK;
}

HRESULT removeFromRegistry(HKEY root, std::span<const RegistryRow> rows) {
    LSTATUS first = ERROR_SUCCESS;
    for (auto row = rows.rbegin(); row != rows.rend(); ++row) {
        const LSTATUS status = removeRow(root, *row);
        if (first == ERROR_SUCCESS)
            first = status;
    }
    return first == ERROR_SUCCESS ? S_OK : HRESULT_FROM_WIN32(static_cast<DWORD>(first));
}

} // namespace pixmo::com
