#include "tests/engine/serverfixture.h"

#include "core/base/text.h"

#include <cstdlib>
#include <fstream>
#include <random>
#include <vector>

namespace pixmo {
namespace {

TEST_F(ServerTest, OtherPaths) {
    start();
    const auto hello = http_->Get("/");
    ASSERT_TRUE(hello);
    EXPECT_EQ(hello->get_header_value("Content-Type"), "text/plain");
    EXPECT_NE(hello->body.find("imaging server"), std::string::npos);
    for (const char* path : {"/docs", "/engine/", "/engine/../docs", "/../etc/passwd", "/stats", "/%2e%2e/"})
        EXPECT_EQ(http_->Get(path)->status, 404) << path;
    EXPECT_EQ(http_->Post("/faults", "stall:ALL", "text/plain")->status, 404);
    EXPECT_EQ(viewer_.readable(http_->Get("/engine")->body).substr(0, 7), "ER|2040");
}

TEST_F(ServerTest, OneConnectionCarriesManyRequestsAndPipelines) {
    start();
    contact();
    RawClient client(server_->port());
    const std::string request = "GET /engine?" + viewer_.pageCount("1234") + " HTTP/1.1\r\nHost: engine\r\n";
    client.send(request + "\r\n" + request + "\r\n" + request + "Connection: close\r\n\r\n");
    auto end = RawClient::End::Reset;
    const std::string answers = client.receiveAll(end);
    EXPECT_EQ(end, RawClient::End::Closed);
    size_t count = 0;
    for (size_t at = answers.find("200 OK"); at != std::string::npos; at = answers.find("200 OK", at + 1))
        ++count;
    EXPECT_EQ(count, 3U);
}

TEST_F(ServerTest, SurvivesRawGarbage) {
    start();
    std::mt19937 random(42);
    for (int round = 0; round < 300; ++round) {
        RawClient client(server_->port());
        std::string bytes = random() % 2 == 0 ? "GET /engine?" : "";
        for (size_t left = random() % 600; left > 0; --left)
            bytes += static_cast<char>(random() % 4 == 0 ? '\n' : random());
        client.send(bytes + "\r\n\r\n");
    }
    auto end = RawClient::End::Reset;
    RawClient tooLong(server_->port());
    tooLong.get("/engine?" + std::string(9000, 'A'));
    EXPECT_EQ(tooLong.receiveUntil("\r\n"), "HTTP/1.1 414 URI Too Long\r\n");
    RawClient endless(server_->port());
    endless.send("GET /engine?" + std::string(300'000, 'A'));
    endless.receiveAll(end);
    RawClient bare(server_->port());
    bare.get("/engine?IC\xB7"
             "4B6579\xB7" +
             Viewer{"Key"}.enciphered("u|m|t|1|0|0"));
    EXPECT_EQ(bare.receiveUntil("\r\n"), "HTTP/1.1 200 OK\r\n");
    EXPECT_EQ(server_->requests(RequestKind::InitialContact), 1U);
    contact();
}

TEST_F(ServerTest, LogsEveryRequest) {
    options_.log = folder_.path() / "log";
    viewer_.user = "j\tdoe";
    start("delay:GP=1@1");
    contact();
    http_->Get(page());
    get(viewer_.getPage("99", "3"));
    get("%0A");
    std::ifstream file(options_.log);
    std::string rest;
    for (std::string line; std::getline(file, line);) {
        const auto fields = split(line, "\t");
        ASSERT_EQ(fields.size(), 9U) << line;
        EXPECT_EQ(fields[0].size(), std::string("2026-01-31T12:00:00.000Z").size());
        rest += line.substr(fields[0].size() + 1) + '\n';
    }
    EXPECT_EQ(rest, "127.0.0.1\tIC\tj?doe\tWS-0042\t-\t-\tOK\t10\n"
                    "127.0.0.1\tGP\tj?doe\tWS-0042\t1234\t1\tOK+delay\t20000\n"
                    "127.0.0.1\tGP\tj?doe\tWS-0042\t99\t3\tER2042\t68\n"
                    "127.0.0.1\t??\t-\t-\t-\t-\tER2040\t96\n");
}

TEST_F(ServerTest, TheControlChannelReplacesFaultsAndCounts) {
    options_.control = true;
    start("http500:ALL");
    EXPECT_EQ(get(viewer_.contact())->status, 500);
    const auto refused = http_->Post("/faults", "stall:GP\nwrong:GP", "text/plain");
    EXPECT_EQ(refused->status, 400);
    EXPECT_NE(refused->body.find("'wrong' is no kind of fault"), std::string::npos);
    EXPECT_EQ(get(viewer_.contact())->status, 500);
    EXPECT_EQ(http_->Post("/faults", "http404:GP@1", "text/plain")->body, "OK\n");
    contact();
    EXPECT_EQ(http_->Get(page())->status, 404);
    EXPECT_EQ(http_->Get(page())->status, 200);
    EXPECT_EQ(http_->Get("/stats")->body, "IC 3\nPC 0\nGP 2\n?? 0\n");
}

TEST(EngineProgram, RefusesWhatItCannotServe) {
    const SampleFolder folder;
    const std::string docs = " --docs " + folder.path().string();
    for (const std::string& arguments :
         {std::string(), docs + "/absent", docs + " --fault wrong", docs + " --property =x",
          docs + " --delimiter '||'", docs + " --enc-bytes -2", docs + " --port 65536",
          docs + " --log" + docs.substr(docs.rfind(' ')) + "/absent/log", docs + " --unknown"})
        EXPECT_NE(std::system((PIXMO_ENGINE_PROGRAM + arguments + " >/dev/null 2>&1").c_str()), 0)
            << arguments;
    EXPECT_EQ(std::system(PIXMO_ENGINE_PROGRAM " --version >/dev/null"), 0);
}

TEST_F(ServerTest, APortBelongsToOneServer) {
    start();
    ServerOptions second = options_;
    second.port = server_->port();
    EXPECT_THROW(EngineServer{second}, std::runtime_error);
    second.port = 0;
    second.log = folder_.path() / "absent" / "log";
    EXPECT_THROW(EngineServer{second}, std::runtime_error);
}

} // namespace
} // namespace pixmo
