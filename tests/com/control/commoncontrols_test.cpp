// The system's controls that the library uses for itself, in a process that asks for nothing of the kind.
#include "faces/com/control/identifiers.h"
#include "tests/com/control/hosting/container.h"
#include "tests/com/control/hosting/modalwatcher.h"

#include <array>
#include <commctrl.h>
#include <gtest/gtest.h>

namespace pixmo::com::test {
namespace {

/// The file of the module that answers the window's messages.
std::wstring moduleOf(HWND window) {
    HMODULE module = nullptr;
    std::array<wchar_t, 1024> file{};
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       reinterpret_cast<LPCWSTR>(GetWindowLongPtrW(window, GWLP_WNDPROC)), &module);
    GetModuleFileNameW(module, file.data(), static_cast<DWORD>(file.size()));
    return file.data();
}

/// What decides about the versions of the libraries and windows that the host asks for.
HANDLE contextOfThread() {
    HANDLE context = nullptr;
    EXPECT_TRUE(GetCurrentActCtx(&context));
    if (context)
        ReleaseActCtx(context);
    return context;
}

TEST(CommonControls, areOfVersionSixForTheControlAlone) {
    const HANDLE before = contextOfThread();
    const Library library;
    Container host(library, FormRun);
    host.initialise();
    host.activate();
    for (const wchar_t* kind : {TOOLBARCLASSNAMEW, PROGRESS_CLASSW}) {
        const HWND control = FindWindowExW(host.controlWindow(), nullptr, kind, nullptr);
        const std::wstring module = moduleOf(control);
        EXPECT_NE(module.find(L"microsoft.windows.common-controls"), std::wstring::npos) << module.c_str();
        EXPECT_NE(module.find(L"_6.0."), std::wstring::npos);
    }
    EXPECT_EQ(contextOfThread(), before);
    HANDLE meanwhile = INVALID_HANDLE_VALUE;
    const ModalWatcher watcher([&](HWND dialog) {
        meanwhile = contextOfThread();
        PostMessageW(dialog, WM_CLOSE, 0, 0);
    });
    EXPECT_EQ(host.as<IImageView>()->AboutBox(), S_OK);
    EXPECT_EQ(meanwhile, before) << "while a dialog stands";
    EXPECT_EQ(contextOfThread(), before);
}

} // namespace
} // namespace pixmo::com::test
