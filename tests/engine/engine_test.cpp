#include "apps/engine/engine.h"
#include "tests/engine/samplefolder.h"
#include "tests/engine/viewer.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <random>

namespace pixmo {
namespace {

class EngineTest : public testing::Test {
protected:
    EngineTest() {
        folder_.write("1234/page1.png", sampleBytes(5000));
        folder_.write("1234/page2.png", sampleBytes(100));
        folder_.write("1234/properties.txt", "PrintFee=1");
    }

    EngineSettings settings() const {
        EngineSettings settings;
        settings.documents = folder_.path();
        return settings;
    }

    /// The wire's body of an answer.
    static std::string ask(Engine& engine, const std::string& query, const std::string& client = "10.0.0.1") {
        return engine.builder().body(engine.reply(query, client).answer);
    }

    SampleFolder folder_;
    Viewer viewer_;
};

TEST_F(EngineTest, ReportsItsErrors) {
    Engine engine(settings());
    ask(engine, viewer_.contact());
    folder_.write("1234/page3.png", "");
    struct Case {
        std::string query;
        std::string answer;
    };
    for (const Case& c :
         {Case{viewer_.pageCount("1"), "ER|2042|Engine|Document not found."},
          Case{viewer_.pageCount("0"), "ER|2042|Engine|Document not found."},
          Case{viewer_.getPage("-1234", "1"), "ER|2042|Engine|Document not found."},
          Case{viewer_.getPage("1234", "0"), "ER|2043|Engine|The document has no such page."},
          Case{viewer_.getPage("1234", "-1"), "ER|2043|Engine|The document has no such page."},
          Case{viewer_.getPage("1234", "4"), "ER|2043|Engine|The document has no such page."},
          Case{viewer_.getPage("1234", "3"), "ER|2044|Engine|The page cannot be read."},
          Case{viewer_.getPage("../1234", "1"), "ER|2040|Engine|The request cannot be understood."},
          Case{"nonsense", "ER|2040|Engine|The request cannot be understood."},
          Case{"ABCDEF", "ER|2041|Engine|The request is enciphered with an unknown key."}})
        EXPECT_EQ(viewer_.readable(ask(engine, c.query)), c.answer) << c.query;
}

TEST_F(EngineTest, KeysAreLearntFromContactsOnly) {
    Engine engine(settings());
    const Viewer first{"first"};
    const Viewer second{"second"};
    EXPECT_EQ(viewer_.readable(ask(engine, viewer_.pageCount("1234"))).substr(0, 7), "ER|2041");
    EXPECT_EQ(viewer_.readable(ask(engine, first.pageCount("1234"))).substr(0, 7), "ER|2041");
    ask(engine, first.contact(), "10.0.0.1");
    ask(engine, second.contact(), "10.0.0.2");
    EXPECT_EQ(first.readable(ask(engine, first.pageCount("1234"), "10.0.0.2")).substr(0, 7), "PC|OK|2");
    // Where none fits, the asking address's own key is the best guess, then the newest of all.
    EXPECT_EQ(first.readable(ask(engine, "ABCD", "10.0.0.1")).substr(0, 7), "ER|2041");
    EXPECT_EQ(second.readable(ask(engine, "ABCD", "10.0.0.3")).substr(0, 7), "ER|2041");
    for (int i = 0; i < 63; ++i)
        ask(engine, Viewer{"key " + std::to_string(i)}.contact(), "10.0.0.4");
    EXPECT_EQ(second.readable(ask(engine, second.pageCount("1234"))).substr(0, 7), "PC|OK|2");
    ask(engine, second.contact(), "10.0.0.2");
    EXPECT_NE(first.readable(ask(engine, first.pageCount("1234"))).substr(0, 2), "PC");
    EXPECT_EQ(second.readable(ask(engine, second.pageCount("1234"))).substr(0, 7), "PC|OK|2");
}

TEST_F(EngineTest, FollowsThePropertiesThatItTells) {
    auto told = settings();
    told.properties = {{"DELIMITER", "|"}, {"PublicKey", "new key"}, {"EncBytes", "-1"}};
    Engine engine(told);
    ask(engine, viewer_.contact());
    const Viewer after{"new key", "|"};
    EXPECT_EQ(after.readable(ask(engine, after.pageCount("1234"))), "PC|OK|2|CP'PrintFee'='1'");
    EXPECT_EQ(viewer_.readable(ask(engine, viewer_.pageCount("1234"))), "PC|OK|2|CP'PrintFee'='1'");
    EXPECT_EQ(restored(ask(engine, after.getPage("1234", "1")), 5000), sampleBytes(5000));
    told.protectedBytes = 0;
    Engine clear(told);
    ask(clear, viewer_.contact());
    EXPECT_EQ(restored(ask(clear, viewer_.getPage("1234", "1")), 0), sampleBytes(5000));
}

TEST_F(EngineTest, RefusesDelimitersThatCannotTravel) {
    for (const char* delimiter : {"", "||", "\u4E2D", "\xFF"}) {
        auto wrong = settings();
        wrong.delimiter = delimiter;
        EXPECT_THROW(Engine{wrong}, std::runtime_error) << delimiter;
    }
}

/// A request with something wrong, from a good one.
std::string damaged(std::string query, std::mt19937& random) {
    for (unsigned changes = random() % 4; changes > 0; --changes) {
        const size_t at = query.empty() ? 0 : random() % query.size();
        switch (random() % 5) {
        case 0:
            query.insert(at, 1, static_cast<char>(random()));
            break;
        case 1:
            query.resize(at);
            break;
        case 2:
            query.insert(at, query.substr(0, random() % 40));
            break;
        case 3:
            query.insert(at, "%B7");
            break;
        default:
            if (!query.empty())
                query[at] = static_cast<char>(random());
        }
    }
    return query;
}

TEST_F(EngineTest, AnswersEveryGarbageInGoodForm) {
    Engine engine(settings());
    std::mt19937 random(4711);
    const std::vector<std::string> fields = {"PC",          "GP", "IC",  "1234", "-1",
                                             "99999999999", "",   "a|b", "\n",   "1"};
    size_t served = 0;
    size_t refused = 0;
    for (int round = 0; round < 5000; ++round) {
        const Viewer viewer{"key " + std::to_string(random() % 100)};
        std::string plain = fields[random() % 3];
        for (size_t count = random() % 8; count > 0; --count)
            plain += '|' + fields[random() % fields.size()];
        const std::vector<std::string> seeds = {viewer.contact(), viewer.pageCount("1234"),
                                                viewer.getPage("1234", "2"), viewer.enciphered(plain),
                                                std::string(random() % 9000, 'A')};
        const std::string query = damaged(seeds[random() % seeds.size()], random);
        const Engine::Reply reply = engine.reply(query, "10.0.0." + std::to_string(random() % 3));
        const std::string body = engine.builder().body(reply.answer);
        if (reply.answer.form == Answer::Form::Page) {
            EXPECT_GE(body.size(), 3072U);
            continue;
        }
        EXPECT_EQ(body.find_first_not_of("0123456789ABCDEF"), std::string::npos);
        const std::string text = Viewer{reply.request.key}.readable(body).substr(0, 5);
        EXPECT_TRUE(text == "IC|OK" || text == "PC|OK" || text.starts_with("ER|20")) << text;
        ++(text.starts_with("ER") ? refused : served);
    }
    EXPECT_GT(served, 200U);
    EXPECT_GT(refused, 500U);
}

} // namespace
} // namespace pixmo
