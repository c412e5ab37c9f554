#include "tests/com/behaviour/comdriver.h"

#include <cstdio>
#include <cstdlib>
#include <gtest/gtest.h>
#include <ole2.h>
#include <thread>

namespace {

const pixmo::com::test::UiThread* windows = nullptr;

} // namespace

std::unique_ptr<pixmo::behaviour::FaceDriver> pixmo::behaviour::makeFaceDriver() {
    return std::make_unique<pixmo::com::test::ComDriver>(*windows, std::getenv("PIXMO_ENGINE"));
}

// The windows live on this thread, the tests on another: they are the user.
int main(int argc, char** argv) {
    using pixmo::com::test::ComDriver;
    testing::InitGoogleTest(&argc, argv);
    if (!std::getenv("PIXMO_ENGINE")) {
        std::fputs("PIXMO_ENGINE is to be the address of a sample engine\n", stderr);
        return 1;
    }
    if (FAILED(OleInitialize(nullptr)))
        return 1;
    int result = 1;
    {
        const pixmo::com::test::UiThread ui;
        windows = &ui;
        const DWORD loop = GetCurrentThreadId();
        std::thread tests([&] {
            result = RUN_ALL_TESTS();
            PostThreadMessageW(loop, WM_QUIT, 0, 0);
        });
        ComDriver::runMessageLoop();
        tests.join();
    }
    OleUninitialize();
    return result;
}
