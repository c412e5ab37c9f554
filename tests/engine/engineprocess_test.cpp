#include "tests/engine/rawclient.h"
#include "tests/engine/samplefolder.h"
#include "tests/engine/viewer.h"

#include <csignal>
#include <cstdio>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <spawn.h>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>

namespace pixmo {
namespace {

/// The program itself, with its standard output at hand.
class Process {
public:
    explicit Process(std::vector<std::string> arguments) {
        int ends[2] = {-1, -1};
        if (pipe2(ends, O_CLOEXEC) != 0)
            throw std::runtime_error("no pipe");
        output_ = ends[0];
        posix_spawn_file_actions_t actions;
        posix_spawn_file_actions_init(&actions);
        posix_spawn_file_actions_adddup2(&actions, ends[1], STDOUT_FILENO);
        posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
        arguments.insert(arguments.begin(), PIXMO_ENGINE_PROGRAM);
        std::vector<char*> pointers;
        pointers.reserve(arguments.size() + 1);
        for (std::string& argument : arguments)
            pointers.push_back(argument.data());
        pointers.push_back(nullptr);
        if (posix_spawn(&id_, PIXMO_ENGINE_PROGRAM, &actions, nullptr, pointers.data(), environ) != 0)
            id_ = -1;
        posix_spawn_file_actions_destroy(&actions);
        close(ends[1]);
    }

    ~Process() {
        close(output_);
        if (id_ > 0)
            wait(SIGKILL);
    }

    Process(const Process&) = delete;
    Process& operator=(const Process&) = delete;

    std::string readLine() const {
        std::string line;
        char c = 0;
        while (read(output_, &c, 1) == 1 && c != '\n')
            line += c;
        return line;
    }

    /// Its exit status, or -1; sends a signal before.
    int wait(int signal = 0) {
        if (signal != 0)
            kill(id_, signal);
        int status = 0;
        const bool ended = waitpid(id_, &status, 0) == id_;
        id_ = -1;
        return ended && WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

private:
    pid_t id_ = -1;
    int output_ = -1;
};

TEST(EngineProgram, ServesUntilItIsTold) {
    const SampleFolder folder;
    folder.write("docs/1/a.png", sampleBytes(5000));
    for (const int signal : {SIGTERM, SIGINT}) {
        Process engine({"--docs", (folder.path() / "docs").string(), "--delimiter", "|", "--enc-bytes", "-1",
                        "--property", "Title=A=B", "--fault", "stall:GP", "--fault", "empty:PC"});
        const std::string line = engine.readLine();
        int port = 0;
        ASSERT_EQ(std::sscanf(line.c_str(), "listening on http://127.0.0.1:%d/engine", &port), 1) << line;
        const Viewer viewer{"key", "|"};
        RawClient client(port);
        client.send("GET /engine?" + viewer.contact() + " HTTP/1.0\r\n\r\n");
        auto end = RawClient::End::Reset;
        EXPECT_EQ(viewer.readable(bodyOf(client.receiveAll(end))), "IC|OK|CP'Title'='A=B'");
        RawClient stalled(port);
        stalled.get("/engine?" + viewer.getPage("1", "1"));
        EXPECT_EQ(engine.wait(signal), 0);
    }
}

TEST(EngineProgram, RefusesWhatItCannotServe) {
    const SampleFolder folder;
    const std::string docs = folder.path().string();
    for (const std::vector<std::string>& arguments : {std::vector<std::string>{},
                                                      {"--docs", docs + "/absent"},
                                                      {"--docs", docs, "--fault", "wrong"},
                                                      {"--docs", docs, "--property", "=x"},
                                                      {"--docs", docs, "--delimiter", "||"},
                                                      {"--docs", docs, "--enc-bytes", "-2"},
                                                      {"--docs", docs, "--port", "65536"},
                                                      {"--docs", docs, "--log", docs + "/absent/log"},
                                                      {"--docs", docs, "--unknown"}}) {
        Process engine(arguments);
        EXPECT_GT(engine.wait(), 0) << testing::PrintToString(arguments);
    }
    Process version({"--version"});
    EXPECT_TRUE(version.readLine().starts_with("engine "));
    EXPECT_EQ(version.wait(), 0);
}

} // namespace
} // namespace pixmo
