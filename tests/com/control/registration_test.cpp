// Registration writes what hosts look for, and takes back all of it.
#include "faces/com/base/boundary.h"
#include "faces/com/base/bstr.h"
#include "faces/com/control/identifiers.h"
#include "tests/com/control/hosting/library.h"

#include <gtest/gtest.h>
#include <map>
#include <ostream>
#include <vector>

namespace pixmo::com::test {
namespace {

using Snapshot = std::map<std::wstring, std::wstring>;

/// How deep a snapshot goes: classes, and what lies in the folders of class identities, interfaces and
/// libraries. What the library writes lies no higher, and below it everything is its own.
constexpr int Depth = 2;

void add(Snapshot& snapshot, HKEY key, const std::wstring& path, int depth) {
    snapshot[path];
    std::vector<wchar_t> name(16384);
    std::vector<BYTE> data(65536);
    for (DWORD at = 0;; ++at) {
        auto length = static_cast<DWORD>(name.size());
        auto size = static_cast<DWORD>(data.size());
        if (RegEnumValueW(key, at, name.data(), &length, nullptr, nullptr, data.data(), &size) !=
            ERROR_SUCCESS)
            break;
        snapshot[path + L"=" + name.data()] =
            std::wstring(reinterpret_cast<const wchar_t*>(data.data()), size / sizeof(wchar_t));
    }
    for (DWORD at = 0;; ++at) {
        auto length = static_cast<DWORD>(name.size());
        if (RegEnumKeyExW(key, at, name.data(), &length, nullptr, nullptr, nullptr, nullptr) != ERROR_SUCCESS)
            break;
        const std::wstring below = path + L"\\" + name.data();
        snapshot[below];
        HKEY child = nullptr;
        if (depth == 1 || RegOpenKeyExW(key, name.data(), 0, KEY_READ, &child) != ERROR_SUCCESS)
            continue;
        add(snapshot, child, below, depth - 1);
        RegCloseKey(child);
    }
}

/// The root of all classes is there for every user of Windows, but not in every new user's of Wine.
Snapshot classesOf(HKEY root) {
    Snapshot snapshot;
    HKEY key = nullptr;
    check(HRESULT_FROM_WIN32(static_cast<DWORD>(
        RegCreateKeyExW(root, L"Software\\Classes", 0, nullptr, 0, KEY_READ, nullptr, &key, nullptr))));
    add(snapshot, key, L"", Depth);
    RegCloseKey(key);
    return snapshot;
}

std::wstring valueOf(HKEY root, const std::wstring& key, const wchar_t* name = nullptr) {
    wchar_t text[MAX_PATH] = {};
    DWORD size = sizeof text;
    const std::wstring path = L"Software\\Classes\\" + key;
    return RegGetValueW(root, path.c_str(), name, RRF_RT_REG_SZ, nullptr, text, &size) == ERROR_SUCCESS
               ? text
               : L"<none>";
}

bool hasKey(HKEY root, const std::wstring& key) {
    HKEY found = nullptr;
    if (RegOpenKeyExW(root, (L"Software\\Classes\\" + key).c_str(), 0, KEY_READ, &found) != ERROR_SUCCESS)
        return false;
    RegCloseKey(found);
    return true;
}

/// Where the registration goes and how it is asked for.
struct Scope {
    const char* name;
    HKEY root;
    HRESULT (*write)(const Library&);
    HRESULT (*remove)(const Library&);
};

const Scope Scopes[] = {
    {"machine", HKEY_LOCAL_MACHINE, [](const Library& library) { return library.registerServer(); },
     [](const Library& library) { return library.unregisterServer(); }},
    {"machineByInstall", HKEY_LOCAL_MACHINE,
     [](const Library& library) { return library.install(true, nullptr); },
     [](const Library& library) { return library.install(false, nullptr); }},
    {"user", HKEY_CURRENT_USER, [](const Library& library) { return library.install(true, L"user"); },
     [](const Library& library) { return library.install(false, L"user"); }},
};

void PrintTo(const Scope& scope, std::ostream* out) {
    *out << scope.name;
}

class Registration : public testing::TestWithParam<Scope> {
protected:
    Library library;
};

TEST_P(Registration, leavesTheRegistryAsItWas) {
    const Snapshot machine = classesOf(HKEY_LOCAL_MACHINE);
    const Snapshot user = classesOf(HKEY_CURRENT_USER);
    ASSERT_EQ(GetParam().write(library), S_OK);
    ASSERT_EQ(GetParam().write(library), S_OK) << "a second time changes nothing";
    EXPECT_GT(classesOf(GetParam().root).size(),
              (GetParam().root == HKEY_CURRENT_USER ? user : machine).size());
    EXPECT_EQ(GetParam().remove(library), S_OK);
    EXPECT_TRUE(classesOf(HKEY_LOCAL_MACHINE) == machine);
    EXPECT_TRUE(classesOf(HKEY_CURRENT_USER) == user);
    EXPECT_EQ(GetParam().remove(library), S_OK) << "what is not there need not be removed";
}

TEST_P(Registration, tellsHostsWhatTheControlIs) {
    ASSERT_EQ(GetParam().write(library), S_OK);
    const std::wstring key = L"CLSID\\{9B84A7D2-2AA5-45D7-8639-A1C27656A22D}";
    const HKEY root = GetParam().root;
    EXPECT_EQ(valueOf(root, key + L"\\InprocServer32"), Library::path());
    EXPECT_EQ(valueOf(root, key + L"\\InprocServer32", L"ThreadingModel"), L"Apartment");
    EXPECT_EQ(valueOf(root, key + L"\\ToolboxBitmap32"), Library::path() + L", 101");
    EXPECT_EQ(valueOf(root, key + L"\\Version"), L"1.0");
    EXPECT_EQ(valueOf(root, L"VellaneInet2.ImageView\\CurVer"), L"VellaneInet2.ImageView.1");
    DWORD status = 0;
    const auto control = library.makeControl().as<IOleObject>();
    ASSERT_EQ(control->GetMiscStatus(DVASPECT_CONTENT, &status), S_OK);
    EXPECT_EQ(valueOf(root, key + L"\\MiscStatus\\1"), std::to_wstring(status))
        << "as the control itself says";
    for (const wchar_t* category :
         {L"{40FC6ED4-2438-11CF-A3DB-080036F12502}", L"{7DD95801-9882-11CF-9FA9-00AA006C42C4}",
          L"{7DD95802-9882-11CF-9FA9-00AA006C42C4}"})
        EXPECT_TRUE(hasKey(root, key + L"\\Implemented Categories\\" + category));
    EXPECT_TRUE(hasKey(root, key + L"\\Control"));
    EXPECT_FALSE(hasKey(root, key + L"\\Required Categories")) << "hosts would leave it out of their lists";
    GetParam().remove(library);
}

// Wine looks for classes of the machine only; those of a user stay unknown to it.
TEST(RegistrationForAll, makesTheClassAndItsLibraryKnown) {
    const Library library;
    ASSERT_EQ(library.registerServer(), S_OK);
    CLSID classId{};
    EXPECT_EQ(CLSIDFromProgID(L"VellaneInet2.ImageView", &classId), S_OK);
    EXPECT_TRUE(IsEqualCLSID(classId, CLSID_ImageView));
    ComPtr<IUnknown> made;
    EXPECT_EQ(CoCreateInstance(classId, nullptr, CLSCTX_INPROC_SERVER, IID_IUnknown, made.receiveAny()),
              S_OK);
    Bstr path;
    EXPECT_EQ(QueryPathOfRegTypeLib(LIBID_VellaneInet2, 1, 0, 0, path.receive()), S_OK);
    EXPECT_EQ(Bstr::viewOf(path.get()), Library::path());
    LPOLESTR type = nullptr;
    EXPECT_EQ(library.makeControl().as<IOleObject>()->GetUserType(USERCLASSTYPE_FULL, &type), S_OK);
    EXPECT_STREQ(type, L"Vellane Internet Image Viewer");
    CoTaskMemFree(type);
    library.unregisterServer();
}

INSTANTIATE_TEST_SUITE_P(Scopes, Registration, testing::ValuesIn(Scopes),
                         [](const auto& scope) { return scope.param.name; });

} // namespace
} // namespace pixmo::com::test
