#include "core/diag/clogevent.h"

#include "core/base/error.h"
#include "faces/scripted/scriptedports.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace pixmo {
namespace {

namespace fs = std::filesystem;

class Log : public testing::Test {
public:
    ~Log() override { ApplicationLog::instance().StartLogging("", log_mode::Off); }

protected:
    std::vector<std::string> lines() const {
        std::vector<std::string> result;
        std::ifstream file(path);
        for (std::string line; std::getline(file, line);)
            result.push_back(line);
        return result;
    }
    void startLogging() { log.StartLogging(path.string(), log_mode::ToFile); }

    scripted::ScratchFolder scratch;
    scripted::Clock clock;
    const fs::path path = scratch.path() / u8"\u017Burnal \u00E9.log";
    cLogEvent log{clock};
};

constexpr const char* Stamp = "5/17/2026 9:30:00 AM           "; // 30 columns and a space

TEST_F(Log, WritesOneLineAnEntry) {
    log.LogEvent("before it was started", 4);
    startLogging();
    log.LogEvent("abc", 4);
    clock.now = "  a date form that is longer than the column of thirty  ";
    log.LogEvent("d\u00E9j\u00E0 vu", 1);
    EXPECT_EQ(lines(), (std::vector<std::string>{
                           std::string(Stamp) + "abc\t[4]",
                           "a date form that is longer than the column of thirty d\u00E9j\u00E0 vu\t[1]"}));
}

TEST_F(Log, AMessageCannotForgeAnotherEntry) {
    startLogging();
    log.LogEvent("one\r\ntwo\nthree\u2028four\u0085"
                 "five\x1B\x7F\xFF",
                 2);
    ASSERT_EQ(lines().size(), 1U);
    EXPECT_EQ(lines()[0], std::string(Stamp) + "one\u240D\u240Atwo\u240Athree\uFFFDfour\uFFFD" +
                              "five\u241B\u2421\uFFFD\t[2]");
}

TEST_F(Log, LevelsAboveTheFilterAreDropped) {
    startLogging();
    struct Case {
        int32_t filter;
        size_t written;
    };
    size_t before = 0;
    for (const Case& c : {Case{4, 3}, Case{2, 2}, Case{1, 1}, Case{0, 0}, Case{-1, 0}}) {
        log.setMinimumEventLevel(c.filter);
        for (const int32_t level : {1, 2, 4})
            log.LogEvent("x", level);
        EXPECT_EQ(lines().size() - before, c.written) << "filter " << c.filter;
        before = lines().size();
    }
}

TEST_F(Log, ModeAndPathAreSharedByAllInstances) {
    startLogging();
    EXPECT_TRUE(log.IsLogging());
    {
        const cLogEvent other(clock);
        EXPECT_FALSE(log.IsLogging()) << "a new instance switches the log off";
        EXPECT_EQ(other.LogPath(), path.string());
        log.setLogMode(log_mode::ToFile);
        EXPECT_TRUE(other.IsLogging());
    }
    EXPECT_FALSE(log.IsLogging()) << "the end of an instance switches the log off";
    log.StartLogging("", log_mode::ToFile);
    log.StartLogging("", -1);
    EXPECT_EQ(log.LogPath(), path.string());
    EXPECT_EQ(log.LogMode(), log_mode::ToFile);
    log.setLogPath(path.string());
    EXPECT_TRUE(log.IsLogging()) << "the same path changes nothing";
    log.setLogPath((scratch.path() / "other.log").string());
    EXPECT_FALSE(log.IsLogging()) << "a new path never starts writing";
    log.setLogMode(log_mode::Automatic);
    EXPECT_TRUE(log.IsLogging());
}

TEST_F(Log, SurvivesARemovedFileAndAFullDisk) {
    startLogging();
    log.LogEvent("first", 4);
    fs::remove(path);
    log.LogEvent("second", 4);
    EXPECT_EQ(lines(), std::vector<std::string>{std::string(Stamp) + "second\t[4]"});

    int32_t number = 0;
    std::string source;
    std::string description;
    log.StartLogging((scratch.path() / "no such folder" / "x.log").string(), log_mode::ToFile);
    log.LogEvent("lost", 4);
    log.GetLastError(number, source, description);
    EXPECT_EQ(number, error_number::PathFileAccess);
    EXPECT_EQ(source, "cLogEvent.LogEvent");
    if (fs::exists("/dev/full")) {
        log.StartLogging("/dev/full", log_mode::ToFile);
        log.LogEvent("lost too", 4);
        log.GetLastError(number, source, description);
        EXPECT_EQ(number, error_number::DiskFull);
    }
    startLogging();
    log.LogEvent("third", 4);
    EXPECT_EQ(lines().size(), 2U);
}

} // namespace
} // namespace pixmo
