// Scripts use the registered control as scripts do: by name, late bound, with variables and handlers.
#include "tests/com/control/hosting/library.h"
#include "tests/com/control/hosting/program.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <ostream>

namespace pixmo::com::test {
namespace {

struct ScriptRun {
    const char* name;
    DWORD status;
    const char* output; ///< a part of it; "" where nothing may be written
};

constexpr ScriptRun Runs[] = {
    {"properties.vbs", 0, ""},
    {"properties.js", 0, ""},
    {"events.vbs", 0, ""},
    {"lasterror.vbs", 0, ""},
    {"form.vbs", 0, ""},
    {"failingcheck.vbs", 1, "check failed: one is two"},
    {"brokenline.vbs", 2, "brokenline.vbs(4, "},
    {"brokenhandler.vbs", 2, "brokenhandler.vbs(9, "},
    {"unreadable.vbs", 2, "unreadable.vbs(2, "},
    {"quitting.vbs", 7, "before"},
};

void PrintTo(const ScriptRun& run, std::ostream* out) {
    *out << run.name;
}

class Scripts : public testing::TestWithParam<ScriptRun> {
protected:
    void SetUp() override { ASSERT_EQ(library.registerServer(), S_OK); }
    void TearDown() override { library.unregisterServer(); }

    Library library;
};

TEST_P(Scripts, endAsTheySay) {
    const std::string path = std::string(PIXMO_TEST_SOURCES "/scripts/") + GetParam().name;
    const auto result =
        runProgram(L"pixmo_script.exe", L"\"" + std::wstring(path.begin(), path.end()) + L"\"");
    EXPECT_EQ(result.status, GetParam().status) << result.output;
    if (*GetParam().output == '\0')
        EXPECT_EQ(result.output, "");
    else
        EXPECT_NE(result.output.find(GetParam().output), std::string::npos) << result.output;
}

INSTANTIATE_TEST_SUITE_P(Files, Scripts, testing::ValuesIn(Runs), [](const auto& run) {
    std::string name = run.param.name;
    std::replace(name.begin(), name.end(), '.', '_');
    return name;
});

} // namespace
} // namespace pixmo::com::test
