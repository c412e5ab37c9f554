#include "apps/engine/requestparser.h"
#include "tests/engine/viewer.h"

#include <gtest/gtest.h>

namespace pixmo {
namespace {

const std::vector<std::string> Keys = {"another", "OrrelKeyset qFlow", "third"};

EngineRequest parse(const std::string& query) {
    return RequestParser({"\u00B7"}).parse(query, Keys);
}

TEST(RequestParser, ReadsTheThreeKindsOfTheWire) {
    const auto contact = parse("IC%B74F7272656C4B65797365742071466C6F77%B7"
                               "5FC9FDD352BEBA23C7525209A3401C051116C52A34DC814DC2");
    EXPECT_EQ(contact.problem, RequestProblem::None);
    EXPECT_EQ(contact.kind, RequestKind::InitialContact);
    EXPECT_EQ(contact.key, "OrrelKeyset qFlow");
    EXPECT_EQ(contact.user + '@' + contact.machine + ' ' + contact.product, "jdoe@WS-0042 Pixmo 2.1.37");

    const auto count = parse("65EE25DC81868CB9A0314B0B242447CA4D4B412C");
    EXPECT_EQ(count.problem, RequestProblem::None);
    EXPECT_EQ(count.kind, RequestKind::PageCount);
    EXPECT_EQ(count.document, 1234);

    for (const char* query : {"72FD25DC81868CB9A0314B0B242447CA4D4B412C34DE",
                              "72FD25DC81868CB9A0314B0B242447CA4D4B412C34DE814F", // with the flag
                              "72fd25dc81868cb9a0314b0b242447ca4d4b412c34de"}) {
        const auto page = parse(query);
        EXPECT_EQ(page.problem, RequestProblem::None) << query;
        EXPECT_EQ(page.kind, RequestKind::GetPage);
        EXPECT_EQ(page.key, "OrrelKeyset qFlow");
        EXPECT_EQ(page.document, 1234);
        EXPECT_EQ(page.page, 3);
    }
    EXPECT_EQ(parse("72FD25FC139B8EB9A031D10AA322").user, "J\u00F6rg");
}

TEST(RequestParser, TakesABareDelimiterByteButNotItsUtf8Form) {
    const std::string key = "4B6579";
    const Viewer viewer{"Key"};
    const std::string body = viewer.enciphered("u|m|t|1|0|0");
    EXPECT_EQ(parse("IC\xB7" + key + "\xB7" + body).problem, RequestProblem::None);
    EXPECT_EQ(parse("IC%b7" + key + "%b7" + body).problem, RequestProblem::None);
    EXPECT_EQ(parse("IC%C2%B7" + key + "%C2%B7" + body).problem, RequestProblem::Malformed);
}

TEST(RequestParser, DecodesPercentFormsAndLeavesDamagedOnes) {
    EXPECT_EQ(RequestParser::percentDecoded("%41b%2Bc+%b7"), "Ab+c+\xB7");
    EXPECT_EQ(RequestParser::percentDecoded("%"), "%");
    EXPECT_EQ(RequestParser::percentDecoded("%4"), "%4");
    EXPECT_EQ(RequestParser::percentDecoded("%4G%%41"), "%4G%A");
    EXPECT_EQ(RequestParser::percentDecoded("%00"), std::string(1, '\0'));
}

TEST(RequestParser, RefusesWhatIsNotOfTheForm) {
    const Viewer viewer;
    struct Case {
        std::string query;
        RequestKind kind;
        RequestProblem problem;
    };
    const auto get = RequestKind::GetPage;
    const auto count = RequestKind::PageCount;
    const auto contact = RequestKind::InitialContact;
    const auto malformed = RequestProblem::Malformed;
    const std::vector<Case> cases = {
        {"", RequestKind::Unknown, malformed},
        {"hello", RequestKind::Unknown, malformed},
        {"ABC", RequestKind::Unknown, malformed},
        {"ABCD", RequestKind::Unknown, RequestProblem::NoKey},
        {"IC", contact, malformed},
        {"IC%B7%B7", contact, malformed},
        {"IC%B74B6579%B7", contact, malformed},
        {"IC%B74B657%B7ABCD", contact, malformed},
        {"IC%B74B6579%B7ABCD%B7", contact, malformed},
        {"IC%B74B6579%B7ABCDEFABCDEFABCDEFABCDEF", contact, malformed},
        {viewer.enciphered("PC|u|m|12|13"), count, malformed},
        {viewer.enciphered("PC|u|m"), count, malformed},
        {viewer.enciphered("PC|a|b|m|12"), count, malformed},
        {viewer.enciphered("PC|u|m|2147483648"), count, malformed},
        {viewer.enciphered("PC|u|m| 12"), count, malformed},
        {viewer.enciphered("PC|u|m|&HC"), count, malformed},
        {viewer.enciphered("PC|u|m|../12"), count, malformed},
        {viewer.enciphered("GP|u|m|12"), get, malformed},
        {viewer.enciphered("GP|u|m|12|32768"), get, malformed},
        {viewer.enciphered("GP|u|m|12|1|1|1"), get, malformed},
        {viewer.enciphered("PP|u|m|12"), RequestKind::Unknown, RequestProblem::NoKey},
        {Viewer{"unknown"}.pageCount("12"), RequestKind::Unknown, RequestProblem::NoKey},
        {viewer.pageCount("-2147483648"), count, RequestProblem::None},
        {viewer.getPage("12", "-32768"), get, RequestProblem::None},
    };
    for (const Case& c : cases) {
        const auto request = parse(c.query);
        EXPECT_EQ(request.kind, c.kind) << c.query;
        EXPECT_EQ(request.problem, c.problem) << c.query;
    }
}

} // namespace
} // namespace pixmo
