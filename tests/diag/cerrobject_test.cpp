#include "core/diag/cerrobject.h"

#include "core/diag/procedure.h"
#include "faces/scripted/scriptedports.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

namespace pixmo {
namespace {

class ErrorObject : public testing::Test {
protected:
    ErrorObject() { log.StartLogging(path.string(), log_mode::ToFile); }

    std::string logged() const {
        std::ifstream file(path);
        std::stringstream text;
        text << file.rdbuf();
        return text.str();
    }
    int32_t push(const Error& error, bool logIt) {
        try {
            throw error;
        } catch (...) {
            return errors.Push("P", logIt);
        }
    }

    scripted::ScratchFolder scratch;
    std::filesystem::path path = scratch.path() / "log";
    scripted::Clock clock;
    cLogEvent log{clock};
    scripted::MessageBox box;
    cErrObject errors{&box};
    const Error notFound{53, "File not found", "S"};
};

TEST_F(ErrorObject, TakesOverTheErrorBeingHandled) {
    errors.setLog(&log);
    EXPECT_EQ(push(notFound, true), 53);
    EXPECT_EQ(errors.Source(), "S.P");
    EXPECT_EQ(errors.ShortErrStr(), "53 File not found");
    EXPECT_EQ(errors.LongErrStr(), "P reports the following error:\r\n53 File not found");
    EXPECT_THAT(logged(), testing::HasSubstr(
                              " Auto Error Report: P reports the following error: 53 File not found\t[1]\n"));
    push(Error(7, "Out of memory"), false);
    EXPECT_EQ(errors.Source(), "P");
    EXPECT_THAT(logged(), testing::Not(testing::HasSubstr("Out of memory")));
    EXPECT_EQ(errors.Push("outside", false), 0);

    push(notFound, false);
    errors.Clear();
    EXPECT_EQ(errors.Number(), 0);
    EXPECT_EQ(errors.Source() + errors.Description(), "");
    EXPECT_EQ(errors.ProcedureName(), "P");
    EXPECT_EQ(errors.Log(), &log);
}

TEST_F(ErrorObject, TheSourcePathGrowsOnTheWay) {
    const auto inner = [&] { throw notFound; };
    const auto outer = [&] {
        try {
            inner();
        } catch (...) {
            errors.Push("Inner", false);
            errors.ReRaise();
        }
    };
    try {
        outer();
    } catch (...) {
        errors.Push("Outer", false);
    }
    EXPECT_EQ(errors.Source(), "S.Inner.Outer");
    errors.Clear();
    EXPECT_NO_THROW(errors.ReRaise());
}

TEST_F(ErrorObject, OnlyALogCanBeItsLog) {
    errors.setLog(&log);
    EXPECT_THROW(errors.setLog(std::string("log")), Error);
    EXPECT_EQ(errors.Log(), &log);
    errors.setLog(nullptr);
    EXPECT_EQ(errors.Log(), nullptr);
    EXPECT_NO_THROW(errors.LogEvent("nowhere", 1));
}

TEST_F(ErrorObject, GivesItsFieldsAsRecordAndAsXml) {
    push(Error(53, "a <b> & \"c\"\r\n\x01", "S"), false);
    errors.AddData("first");
    errors.AddData("se<cond");
    EXPECT_EQ(errors.ToXML().serialise(),
              "<error number=\"53\" source=\"S.P\" description=\"a &lt;b&gt; &amp; "
              "&quot;c&quot;&#13;&#10;\uFFFD\"><extradata>first</extradata><extradata>se&lt;cond</extradata>"
              "</error>");
    const Recordset row = errors.ToRecordset();
    ASSERT_EQ(row.Fields.size(), 3U);
    EXPECT_EQ(row.Fields[0].Name, "Number");
    EXPECT_EQ(row.Fields[0].Type, 3);
    EXPECT_EQ(std::get<int32_t>(row.Fields[0].Value), 53);
    EXPECT_EQ(row.Fields[1].Type, 200);
    EXPECT_EQ(row.Fields[1].DefinedSize, 3U);
    EXPECT_EQ(std::get<std::string>(row.Fields[2].Value), errors.Description());
    errors.Clear();
    EXPECT_EQ(errors.ToXML().serialise(), "<error number=\"0\" source=\"\" description=\"\"/>");
}

TEST_F(ErrorObject, DataItemsAreLoggedUntilThereAreTooMany) {
    errors.setLog(&log);
    errors.AddData("item");
    EXPECT_THAT(logged(), testing::HasSubstr("      item\t[4]\n"));
    errors.setLog(nullptr);
    for (int i = 1; i < 32767; ++i)
        errors.AddData("x");
    EXPECT_TRUE(box.questions.empty());
    errors.AddData("the last straw");
    ASSERT_EQ(box.questions.size(), 1U);
    EXPECT_EQ(box.questions[0].text, "cErrObject.AddData failed to add the data item the last straw");
    EXPECT_EQ(box.questions[0].buttons, Buttons::Ok);
    EXPECT_EQ(errors.extraData().size(), 32768U);
}

class Convention : public ErrorObject {
protected:
    Convention() {
        scope->sourcePrefix = "Vellane.";
        scope->errorObject = &errors;
        scope->messageBox = &box;
    }

    std::shared_ptr<ProcedureScope> scope = std::make_shared<ProcedureScope>();
};

TEST_F(Convention, EachAnswerOfTheUser) {
    struct Case {
        std::vector<Answer> answers;
        std::string steps;
        bool completed;
        size_t asked;
    };
    const Case cases[] = {
        {{Answer::Retry, Answer::Retry}, "12223", true, 2},
        {{Answer::Retry, Answer::Ignore}, "1223", true, 2},
        {{Answer::Ignore}, "123", true, 1},
        {{Answer::Abort}, "12", false, 1},
        {{Answer::Cancel}, "12", false, 1},
        {{Answer::Retry, Answer::Cancel}, "122", false, 2},
    };
    for (const Case& c : cases) {
        box = {};
        std::string steps;
        int failures = 2;
        box.answers.assign(c.answers.begin(), c.answers.end());
        Procedure procedure(scope, "Proc", Buttons::AbortRetryIgnore);
        procedure.step([&] { steps += '1'; })
            .step([&] {
                steps += '2';
                if (failures-- > 0)
                    throw notFound;
            })
            .step([&] { steps += '3'; });
        EXPECT_EQ(steps, c.steps);
        EXPECT_EQ(procedure.completed(), c.completed);
        EXPECT_EQ(box.questions.size(), c.asked);
        EXPECT_EQ(box.questions[0].text, "Vellane.Proc reports the following error:\r\n53 File not found");
        EXPECT_EQ(box.questions[0].buttons, Buttons::AbortRetryIgnore);
    }
}

TEST_F(Convention, NothingRunsAndNothingIsAskedAfterTheEnd) {
    std::string steps;
    box.whileAsked = [&] { scope->ended = true; };
    box.answers = {Answer::Retry};
    Procedure(scope, "Proc", Buttons::RetryCancel)
        .step([&] {
            steps += '1';
            throw std::runtime_error("x");
        })
        .step([&] { steps += '2'; });
    EXPECT_EQ(steps, "1");
    EXPECT_EQ(box.questions.size(), 1U);
    Procedure(scope, "Proc", Buttons::RetryCancel).step([&] { throw notFound; });
    EXPECT_EQ(box.questions.size(), 1U);
}

TEST_F(Convention, AStepMayLeave) {
    std::string steps;
    const bool completed = Procedure(scope, "Proc", Buttons::RetryCancel)
                               .step([&] { return Flow::GoOn; })
                               .step([&] { return Flow::Leave; })
                               .step([&] { steps += 'x'; })
                               .completed();
    EXPECT_FALSE(completed);
    EXPECT_EQ(steps, "");
    EXPECT_TRUE(box.questions.empty());
}

} // namespace
} // namespace pixmo
