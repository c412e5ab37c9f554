// The library as a file: alone, versioned, with its entries.
#include "faces/com/base/widetext.h"
#include "faces/com/control/identifiers.h"
#include "tests/com/control/hosting/library.h"

#include <gtest/gtest.h>
#include <set>
#include <vector>

namespace pixmo::com::test {
namespace {

class LibraryFile : public testing::Test {
protected:
    void SetUp() override { ASSERT_NE(module, nullptr); }
    void TearDown() override { FreeLibrary(module); }

    template <class Type>
    const Type* at(DWORD address) const {
        return reinterpret_cast<const Type*>(reinterpret_cast<const char*>(module) + address);
    }
    const IMAGE_DATA_DIRECTORY& directory(size_t which) const {
        const auto* const dos = at<IMAGE_DOS_HEADER>(0);
        return at<IMAGE_NT_HEADERS>(static_cast<DWORD>(dos->e_lfanew))->OptionalHeader.DataDirectory[which];
    }

    // As an image whose imports are not looked for.
    HMODULE module = LoadLibraryExW(Library::path().c_str(), nullptr, DONT_RESOLVE_DLL_REFERENCES);
};

TEST_F(LibraryFile, needsTheSystemsOwnLibrariesOnly) {
    const std::set<std::string> systems{"advapi32.dll", "comctl32.dll", "comdlg32.dll", "gdi32.dll",
                                        "imm32.dll",    "kernel32.dll", "msimg32.dll",  "msvcrt.dll",
                                        "ole32.dll",    "oleacc.dll",   "oleaut32.dll", "shell32.dll",
                                        "shlwapi.dll",  "urlmon.dll",   "user32.dll",   "uxtheme.dll",
                                        "version.dll",  "winspool.drv", "wininet.dll",  "gdiplus.dll"};
    const auto* import = at<IMAGE_IMPORT_DESCRIPTOR>(directory(IMAGE_DIRECTORY_ENTRY_IMPORT).VirtualAddress);
    ASSERT_NE(import->Name, 0U);
    for (; import->Name != 0; ++import) {
        std::string name = at<char>(import->Name);
        for (char& letter : name)
            letter = static_cast<char>(tolower(letter));
        EXPECT_EQ(systems.count(name), 1U) << name;
    }
}

TEST_F(LibraryFile, exportsTheEntriesUndecorated) {
    const auto* const exports =
        at<IMAGE_EXPORT_DIRECTORY>(directory(IMAGE_DIRECTORY_ENTRY_EXPORT).VirtualAddress);
    std::set<std::string> names;
    for (DWORD index = 0; index < exports->NumberOfNames; ++index)
        names.insert(at<char>(at<DWORD>(exports->AddressOfNames)[index]));
    EXPECT_EQ(names, (std::set<std::string>{"DllCanUnloadNow", "DllGetClassObject", "DllInstall",
                                            "DllRegisterServer", "DllUnregisterServer"}));
}

TEST_F(LibraryFile, carriesVersionLibraryAndPicture) {
    DWORD unused = 0;
    std::vector<char> block(GetFileVersionInfoSizeW(Library::path().c_str(), &unused));
    ASSERT_TRUE(
        GetFileVersionInfoW(Library::path().c_str(), 0, static_cast<DWORD>(block.size()), block.data()));
    VS_FIXEDFILEINFO* version = nullptr;
    UINT size = 0;
    ASSERT_TRUE(VerQueryValueW(block.data(), L"\\", reinterpret_cast<void**>(&version), &size));
    EXPECT_EQ(HIWORD(version->dwFileVersionMS), static_cast<WORD>(TypeLibraryMajor));
    const auto bitmap = static_cast<HBITMAP>(
        LoadImageW(module, MAKEINTRESOURCEW(ToolboxBitmap), IMAGE_BITMAP, 0, 0, LR_CREATEDIBSECTION));
    BITMAP picture{};
    ASSERT_NE(GetObjectW(bitmap, sizeof picture, &picture), 0);
    EXPECT_EQ(picture.bmWidth, 16);
    EXPECT_EQ(picture.bmHeight, 15);
    DeleteObject(bitmap);
}

} // namespace
} // namespace pixmo::com::test
