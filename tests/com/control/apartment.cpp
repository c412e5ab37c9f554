#include <gtest/gtest.h>
#include <ole2.h>

namespace pixmo::com::test {
namespace {

/// The tests' thread is a host's: an apartment of its own.
class Apartment : public testing::Environment {
public:
    void SetUp() override { ASSERT_EQ(OleInitialize(nullptr), S_OK); }
    void TearDown() override { OleUninitialize(); }
};

[[maybe_unused]] const auto* const apartment = testing::AddGlobalTestEnvironment(new Apartment);

} // namespace
} // namespace pixmo::com::test
