#include "faces/com/ports/privatefolder.h"

#include <memory>
#include <sddl.h>
#include <vector>

namespace pixmo::com {

namespace {

struct FreeLocal {
    void operator()(void* block) const { LocalFree(block); }
};

template <typename Type>
using LocalBlock = std::unique_ptr<Type, FreeLocal>;

/// The identifier of the user in whose name this thread's process runs, as text; "" when it cannot be told.
std::wstring userIdentifier() {
    HANDLE token = nullptr;
    if (!OpenProcessToken(GetCurrentProcess(), TOKEN_QUERY, &token))
        return {};
    const std::unique_ptr<void, decltype(&CloseHandle)> closing(token, CloseHandle);
    DWORD size = 0;
    GetTokenInformation(token, TokenUser, nullptr, 0, &size);
    std::vector<uint8_t> facts(size);
    LPWSTR text = nullptr;
    if (size == 0 || !GetTokenInformation(token, TokenUser, facts.data(), size, &size) ||
        !ConvertSidToStringSidW(reinterpret_cast<const TOKEN_USER*>(facts.data())->User.Sid, &text))
        return {};
    const LocalBlock<wchar_t> freeing(text);
    return text;
}

} // namespace

bool makePrivateFolder(const std::wstring& path) {
    const std::wstring user = userIdentifier();
    // Protected from inheritance; full access for the user, inherited by files and folders within.
    const std::wstring rule = L"D:P(A;OICI;FA;;;" + user + L")";
    PSECURITY_DESCRIPTOR description = nullptr;
    if (user.empty() || !ConvertStringSecurityDescriptorToSecurityDescriptorW(rule.c_str(), SDDL_REVISION_1,
                                                                              &description, nullptr))
        return false;
    const LocalBlock<void> freeing(description);
    SECURITY_ATTRIBUTES attributes{};
    attributes.nLength = sizeof attributes;
    attributes.lpSecurityDescriptor = description;
    return CreateDirectoryW(path.c_str(), &attributes) != 0;
}

} // namespace pixmo::com
