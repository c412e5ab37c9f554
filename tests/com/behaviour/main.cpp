#include "tests/com/behaviour/comdriver.h"

#include <cstdio>
#include <cstdlib>
#include <gtest/gtest.h>
#include <ole2.h>
#include <thread>

namespace {

const pixmo::com::test::UiThread* windows = nullptr;

} // namespace

pixmo::behaviour::FaceDriver::FaceDriver()
    : my_(std::make_unique<Hands>(*windows, std::getenv("PIXMO_ENGINE"))) {}

// The windows live on this thread, the tests on another: they are the user.
int main(int argc, char** argv) {
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
        pixmo::behaviour::FaceDriver::Hands::runMessageLoop();
        tests.join();
    }
    OleUninitialize();
    return result;
}
