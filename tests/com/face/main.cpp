#include <gtest/gtest.h>
#include <ole2.h>

// As a host does: the windows live in a single-threaded apartment.
int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    if (FAILED(OleInitialize(nullptr)))
        return 1;
    const int status = RUN_ALL_TESTS();
    OleUninitialize();
    return status;
}
