#include <gtest/gtest.h>

// As a host does: the control lives in a single-threaded apartment.
int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    if (FAILED(OleInitialize(nullptr)))
        return 1;
    const int status = RUN_ALL_TESTS();
    OleUninitialize();
    return status;
}
