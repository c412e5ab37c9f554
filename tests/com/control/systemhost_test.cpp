// The control in hosts that are not the tests' own: the system's control container, and a program that finds
// the class by its manifest alone.
#include "faces/com/base/comptr.h"
#include "tests/com/control/hosting/container.h"
#include "tests/com/control/hosting/library.h"
#include "tests/com/control/hosting/program.h"

#include <filesystem>
#include <gtest/gtest.h>

namespace pixmo::com::test {
namespace {

class SystemContainer : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_EQ(library.registerServer(), S_OK);
        ASSERT_NE(atl, nullptr);
        const auto start = procedure<BOOL(WINAPI*)()>("AtlAxWinInit");
        ASSERT_TRUE(start && start());
    }
    void TearDown() override { library.unregisterServer(); }

    template <class Procedure>
    Procedure procedure(const char* name) const {
        return reinterpret_cast<Procedure>(reinterpret_cast<void*>(GetProcAddress(atl, name)));
    }

    Library library;
    HMODULE atl = LoadLibraryW(L"atl.dll");
};

TEST_F(SystemContainer, showsResizesAndEndsTheControl) {
    const HWND frame = CreateWindowExW(0, L"STATIC", L"", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 500, 500,
                                       nullptr, nullptr, nullptr, nullptr);
    const HWND site = CreateWindowExW(0, L"AtlAxWin", L"VellaneInet2.ImageView", WS_CHILD | WS_VISIBLE, 0, 0,
                                      300, 200, frame, nullptr, nullptr, nullptr);
    ASSERT_NE(site, nullptr);
    ComPtr<IUnknown> control;
    ASSERT_EQ(procedure<HRESULT(WINAPI*)(HWND, IUnknown**)>("AtlAxGetControl")(site, control.receive()),
              S_OK);
    HWND window = nullptr;
    ASSERT_EQ(control.as<IOleInPlaceObject>()->GetWindow(&window), S_OK);
    EXPECT_TRUE(IsChild(site, window));
    MoveWindow(site, 0, 0, 420, 260, TRUE);
    pumpFor(20);
    RECT area{};
    GetWindowRect(window, &area);
    EXPECT_EQ(area.right - area.left, 420);
    EXPECT_EQ(area.bottom - area.top, 260);
    DestroyWindow(frame);
    EXPECT_FALSE(IsWindow(window));
    EXPECT_EQ(control.detach()->Release(), 0U);
    EXPECT_TRUE(library.canUnload());
}

class Viewer : public testing::Test {
protected:
    void SetUp() override { std::filesystem::remove(picture); }
    /// The status shows that no document was shown, and the picture that the control was there all the same.
    void expectPicture(const std::wstring& options) const {
        const auto result = run(options);
        EXPECT_EQ(result.status, 1U);
        ASSERT_TRUE(std::filesystem::exists(picture)) << result.output;
        EXPECT_GT(std::filesystem::file_size(picture), 900U * 950U * 3U);
    }
    ProgramResult run(const std::wstring& options) const {
        return runProgram(L"pixmo_viewer.exe",
                          options + L" --screenshot \"" + picture.wstring() + L"\" --wait 200");
    }

    std::filesystem::path picture = std::filesystem::temp_directory_path() / "pixmo-viewer.bmp";
};

TEST_F(Viewer, findsTheControlWithoutRegistration) {
    expectPicture(L"");
}

TEST_F(Viewer, findsTheControlThatIsRegistered) {
    const auto result = run(L"--registered");
    EXPECT_EQ(result.status, 2U) << "none is registered";
    EXPECT_FALSE(std::filesystem::exists(picture));
    EXPECT_NE(result.output, "");
    const Library library;
    ASSERT_EQ(library.registerServer(), S_OK);
    expectPicture(L"--registered");
    library.unregisterServer();
}

} // namespace
} // namespace pixmo::com::test
