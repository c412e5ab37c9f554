#include "core/protocol/cclienthandlers.h"

#include "core/cipher/clsrc4.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <numeric>

namespace pixmo {
namespace {

constexpr const char* Key = "OrrelKeyset qFlow";

class Handlers : public testing::Test {
protected:
    Handlers() {
        handlers.InitialContact.connect([this](bool flag) { heard += flag ? "contact;" : "no contact;"; });
        handlers.PageCount.connect(
            [this](int16_t count) { heard += "count " + std::to_string(count) + ";"; });
        handlers.GetPage.connect([this](const std::string& text) { heard += "page " + text + ";"; });
        handlers.ServerErrorReport.connect(
            [this](int32_t number, const std::string& text1, const std::string& text2) {
                heard += "error " + std::to_string(number) + "," + text1 + "," + text2 + ";";
            });
        handlers.PropertyChanged.connect(
            [this](const std::string& name, const std::string& value) { heard += name + "=" + value + ";"; });
    }

    static std::string decipher(const std::string& hex) { return clsRC4().DecryptString(hex, Key, true); }
    static std::string encipher(const std::string& text) { return clsRC4().EncryptString(text, Key, true); }

    /// What was heard of an answer, or "!" and the number of the failure.
    std::string process(const std::string& plain, const std::string& expected = {}) {
        heard.clear();
        const int32_t status = handlers.ProcessResponse("|", Key, encipher(plain), expected, fields);
        return status == 0 ? heard : heard + "!" + std::to_string(status);
    }

    cErrObject errors;
    cClientHandlers handlers{errors};
    cClientHandlers::Sender sender{"|", Key, "jdoe", "WS-0042"};
    std::string request;
    std::string id;
    std::string heard;
    std::vector<std::string> fields;
};

const std::string Invalid = "!" + std::to_string(error_number::InvalidResponse);

TEST_F(Handlers, BuildTheThreeRequests) {
    EXPECT_EQ(handlers.BuildReqIC(sender, "Pixmo", "02", "1.0", "37beta", request, id), 0);
    EXPECT_EQ(id, "IC");
    EXPECT_EQ(request.substr(0, 38), "IC|4F7272656C4B65797365742071466C6F77|");
    EXPECT_EQ(request.size(), 38U + 50U);
    EXPECT_EQ(decipher(request.substr(38)), "jdoe|WS-0042|Pixmo|2|1|37");

    EXPECT_EQ(handlers.BuildReqPC(sender, 1234, request, id), 0);
    EXPECT_EQ(id, "PC|1234");
    EXPECT_EQ(request.size(), 40U);
    EXPECT_EQ(decipher(request), "PC|jdoe|WS-0042|1234");

    EXPECT_EQ(handlers.BuildReqGP(sender, 1234, 3, request, id, false), 0);
    EXPECT_EQ(id, "GP|1234|3");
    EXPECT_EQ(decipher(request), "GP|jdoe|WS-0042|1234|3");
    EXPECT_EQ(handlers.BuildReqGP(sender, -5, 3, request, id, true), 0);
    EXPECT_EQ(id, "GP|-5|3");
    EXPECT_EQ(decipher(request), "GP|jdoe|WS-0042|-5|3|1");
}

TEST_F(Handlers, FieldsTravelAsTheyStand) {
    sender = {"\u00B7", "Schl\u00FCssel", "j|d\u00B7e\u4E2D", "B\u00FCro"};
    EXPECT_EQ(handlers.BuildReqPC(sender, 1, request, id), 0);
    EXPECT_EQ(clsRC4().DecryptString(request, "Schl\u00FCssel", true),
              "PC\u00B7j|d\u00B7e?\u00B7B\u00FCro\u00B7"
              "1");
    EXPECT_EQ(handlers.BuildReqIC(sender, "", "", "", "", request, id), 0);
    EXPECT_THAT(request, testing::StartsWith("IC\u00B7"
                                             "5363686CFC7373656C\u00B7"));
}

TEST_F(Handlers, RefuseBadDelimitersAndKeys) {
    struct Case {
        const char* delimiter;
        const char* key;
        int32_t initialContact;
        int32_t others;
    };
    const int32_t badKey = error_number::InvalidPublicKey;
    const int32_t badDelimiter = error_number::InvalidDelimiter;
    for (const Case& c :
         {Case{"||", "k", badDelimiter, badDelimiter}, Case{"", "k", badDelimiter, badDelimiter},
          Case{"|", "", badKey, badKey}, Case{"||", "", badKey, badDelimiter}}) {
        sender.Delimiter = c.delimiter;
        sender.PublicKey = c.key;
        EXPECT_EQ(handlers.BuildReqIC(sender, "P", "1", "2", "3", request, id), c.initialContact);
        EXPECT_EQ(errors.Source(), "cClientHandlers.BuildRequestID");
        EXPECT_EQ(handlers.BuildReqPC(sender, 1, request, id), c.others);
        EXPECT_EQ(errors.Source(), "cClientHandlers.BuildReqPC");
        EXPECT_EQ(handlers.BuildReqGP(sender, 1, 1, request, id, false), c.others);
        EXPECT_EQ(errors.Source(), "cClientHandlers.BuildReqGP");
        EXPECT_EQ(errors.Description(),
                  c.others == badKey ? "Invalid public key length." : "Invalid delimiter length.");
    }
    EXPECT_EQ(request + id, "");
}

TEST_F(Handlers, ReadAnswers) {
    struct Case {
        const char* plain;
        std::string heard;
    };
    const Case cases[] = {
        {"IC|OK", "contact;"},
        {"ic|OK", Invalid},
        {"IC|OK|CP'Title'='Deed 1988'|junk|cp'X'='a=b'", "Title=Deed 1988;X=a=b;contact;"},
        {"IC|ok", Invalid},
        {"IC", Invalid},
        {"", "!1"},
        {"PC|OK|12|CP'Status'='Active'", "Status=Active;count 12;"},
        {"PC|OK|0", "count 0;"},
        {"PC|OK", "count 0;"},
        {"PC|ok|1", Invalid},
        {"PC|OK|many", "!13"},
        {"PC|OK|32768", "!6"},
        {"PC|OK|", "!13"},
        {"er|2042|DocServer|Document not found.", "error 2042,DocServer,Document not found.;"},
        {"ER|2042|DocServer", "!9"},
        {"ER|x|DocServer|t", "!13"},
        {"ER|2147483648|a|b", "!6"},
        {"PP|anything", ""},
        {"ZZ|anything", ""},
        {"IC|OK|CP'X'=123|CP'Y'=1|CP'Z'=", "X=2;Y=;Z=;contact;"},
        {"IC|OK|CP'X", "!5"},
    };
    for (const Case& c : cases)
        EXPECT_EQ(process(c.plain), c.heard) << c.plain;
}

TEST_F(Handlers, GiveTheFieldsOfTheCodesTheyHandle) {
    process("PC|OK|12");
    EXPECT_EQ(fields, (std::vector<std::string>{"PC", "OK", "12"}));
    process("PP|x");
    EXPECT_TRUE(fields.empty());
    const std::string answer = encipher("gp|x");
    EXPECT_EQ(process("gp|x"), "page " + answer + ";");
    EXPECT_EQ(fields, (std::vector<std::string>{"gp", "x"}));
    process("PC|no|12");
    EXPECT_TRUE(fields.empty());
}

TEST_F(Handlers, TheExpectedTypeComesBeforeTheAnswersOwn) {
    EXPECT_EQ(process("IC|OK", "PC"), Invalid);
    EXPECT_EQ(errors.Source(), "cClientHandlers.DoPageCount.cClientHandlers.ProcessResponse");
    EXPECT_EQ(process("PC|OK|3", "PC"), "count 3;");
    EXPECT_EQ(process("PC|OK|3", "pc"), "");
}

TEST_F(Handlers, RefuseToReadWithoutAnswerKeyOrDelimiter) {
    EXPECT_EQ(handlers.ProcessResponse("", "", "", "", fields), 1);
    EXPECT_EQ(errors.Description(), "No response to process.");
    EXPECT_EQ(handlers.ProcessResponse("", "", "00", "", fields), error_number::InvalidPublicKey);
    EXPECT_EQ(handlers.ProcessResponse("", "k", "00", "", fields), error_number::InvalidDelimiter);
    const std::string otherKey = clsRC4().EncryptString("PC|OK|1", "another key", true);
    EXPECT_EQ(handlers.ProcessResponse("|", Key, otherKey, "", fields), error_number::InvalidResponse);
    EXPECT_EQ(errors.Description(), "The server has returned an invalid response.");
}

TEST_F(Handlers, PageProtectionReversesTheLeadingBytes) {
    struct Case {
        int32_t count;
        int32_t lowerBound;
        std::vector<uint8_t> result;
    };
    for (const Case& c :
         {Case{-1, 1, {5, 4, 3, 2, 1}}, Case{0, 1, {1, 2, 3, 4, 5}}, Case{1, 1, {1, 2, 3, 4, 5}},
          Case{3, 1, {3, 2, 1, 4, 5}}, Case{5, 1, {5, 4, 3, 2, 1}}, Case{2147483647, 1, {5, 4, 3, 2, 1}},
          Case{-2, 1, {1, 2, 3, 4, 5}}, Case{3, 0, {4, 3, 2, 1, 5}}, Case{-1, 7, {5, 4, 3, 2, 1}}}) {
        std::vector<uint8_t> bytes(5);
        std::iota(bytes.begin(), bytes.end(), uint8_t{1});
        EXPECT_EQ(handlers.N5148F(bytes, c.count, c.lowerBound), 0);
        EXPECT_EQ(bytes, c.result) << c.count << " from " << c.lowerBound;
        handlers.N5148F(bytes, c.count, c.lowerBound);
        EXPECT_TRUE(std::is_sorted(bytes.begin(), bytes.end()));
    }
    EXPECT_EQ(handlers.N5148F({}, -1), 0);
}

} // namespace
} // namespace pixmo
