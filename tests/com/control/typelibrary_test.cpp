// The type library that is built is the one that hosts were compiled against.
#include "core/control/propertytable.h"
#include "faces/com/base/boundary.h"
#include "tests/com/control/hosting/library.h"
#include "tests/com/control/hosting/typelibrarytext.h"

#include <fstream>
#include <gtest/gtest.h>
#include <sstream>

namespace pixmo::com::test {
namespace {

ComPtr<ITypeLib> builtLibrary() {
    ComPtr<ITypeLib> library;
    check(LoadTypeLibEx(Library::path().c_str(), REGKIND_NONE, library.receive()));
    return library;
}

std::string frozenText() {
    std::ifstream file(PIXMO_TEST_SOURCES "/frozen/vellaneinet2.txt");
    std::ostringstream text;
    text << file.rdbuf();
    std::string frozen = text.str();
    std::erase(frozen, '\r');
    return frozen;
}

// Identities, numbers and signatures never change: a new version adds. Where it does, the frozen file gets
// the new lines; the test's own output is the file.
TEST(TypeLibrary, isAsHostsKnowIt) {
    const std::string built = describe(*builtLibrary());
    if (built != frozenText())
        std::ofstream("vellaneinet2.txt", std::ios::binary) << built;
    EXPECT_EQ(built, frozenText());
}

TEST(TypeLibrary, hasEveryPropertyOfTheControl) {
    const std::string built = describe(*builtLibrary());
    const auto has = [&](const char* kind, const char* name) {
        return built.find(std::string(kind) + name + "(") != std::string::npos;
    };
    for (const PropertyRow& row : propertyTable()) {
        EXPECT_TRUE(has(" get ", row.name)) << row.name;
        EXPECT_EQ(has(" put ", row.name) || has(" putref ", row.name), row.let != nullptr) << row.name;
    }
}

TEST(TypeLibrary, explainsEveryMember) {
    EXPECT_EQ(undocumented(*builtLibrary()), "");
}

} // namespace
} // namespace pixmo::com::test
