#include "faces/com/ports/identity.h"

#include <gtest/gtest.h>

namespace pixmo::com {

TEST(Identity, names) {
    EXPECT_EQ(Identity().userName(), "root");
    EXPECT_NE(Identity().computerName(), "");
}

} // namespace pixmo::com
