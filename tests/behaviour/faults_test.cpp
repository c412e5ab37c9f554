#include "tests/behaviour/facetest.h"

namespace pixmo::behaviour {
namespace {

constexpr const char* Silent = "Status = The server has sent nothing for 0.3 seconds.";

constexpr const char* Unheard = "Status = The server has sent nothing for 3 seconds.";
constexpr const char* Closed = "Status = The server closed the connection.";
constexpr const char* NoAnswer = "Status = The server does not answer.";

/// What a fault of the server leads to.
struct FaultCase {
    const char* fault;
    const char* message; ///< in a message box; "" for none
    const char* logged;  ///< a line of the log holds it
    const char* notice;  ///< in place of the page; "" when the page is shown, or no document is left
    int32_t document;    ///< current one afterwards
    int32_t pageCount;   ///< afterwards; EitherCount where the count itself may have been cancelled
};

/// A page that is no answer cancels whatever is under way, the request for the count too if it still is.
constexpr int32_t EitherCount = -1;

void PrintTo(const FaultCase& faultCase, std::ostream* out) {
    *out << faultCase.fault;
}

class Faults : public FaceTest, public testing::WithParamInterface<FaultCase> {
protected:
    /// Answers the boxes so that all ends until all is quiet; their texts.
    std::string answerBoxes() {
        std::string texts;
        EXPECT_TRUE(waitFor([&] {
            const auto box = face->answer({"Abort", "Cancel", "OK"});
            texts += box ? box->text + '\n' : "";
            return !box && face->isIdle();
        }));
        return texts;
    }
};

TEST_P(Faults, AreSeenAndOvercome) {
    const FaultCase& expected = GetParam();
    announcesErrors = true;
    const bool isReset = std::string(expected.fault).starts_with("reset");
    const bool mayGoUnheard = isReset && !face->hearsResets();
    // Whatever else is slow here is not given up.
    if (mayGoUnheard || expected.logged == std::string(Silent))
        face->setStallTimeout(mayGoUnheard ? 3000 : 300);
    face->setFaults(expected.fault);
    face->load(sample::Deed, 3);
    const std::string texts = answerBoxes();

    const std::string message = expected.message;
    EXPECT_EQ(texts.empty(), message.empty()) << texts;
    EXPECT_THAT(texts, testing::HasSubstr(message));
    // A connection that is reset may take with it what had come but had not been read.
    const bool unread = isReset && log().find(expected.logged) == std::string::npos;
    if (unread)
        EXPECT_THAT(log(), testing::AnyOf(testing::HasSubstr(Unheard), testing::HasSubstr(Closed),
                                          testing::HasSubstr(NoAnswer)));
    else
        EXPECT_THAT(log(), testing::HasSubstr(expected.logged));
    EXPECT_EQ(number("DocID"), expected.document);
    if (expected.pageCount == EitherCount)
        EXPECT_THAT(number("PageCount"), testing::AnyOf(0, sample::DeedPages));
    else
        EXPECT_EQ(number("PageCount"), expected.pageCount);
    EXPECT_THAT(face->notice(), testing::HasSubstr(unread ? "" : expected.notice));
    EXPECT_EQ(face->notice().empty(), std::string(expected.notice).empty()) << face->notice();
    EXPECT_FALSE(button("CANCEL").enabled);
    EXPECT_LE(face->pageFiles(), 1);

    face->setFaults("");
    open(2, sample::Fax);
    EXPECT_EQ(face->readOut(), "Page 2 of 3");
    EXPECT_EQ(face->pageFiles(), 1);
    face->call("Clear");
    EXPECT_EQ(face->pageFiles(), 0);
}

constexpr int32_t Doc = sample::Deed;
constexpr int32_t Count = sample::DeedPages;

constexpr const char* NoContact = "Initial Contact failed or was cancelled.";
constexpr const char* Invalid = "The server has returned an invalid response.";
constexpr const char* Told = "2050 Engine The engine was told to fail.";
constexpr const char* Refused = "Status = The server answered 500 Internal Server Error.";
constexpr const char* Circling = "Status = The server redirects without end.";
constexpr const char* CutShort = "Status = The answer ended after";
constexpr const char* NotLoaded = "Page 3 could not be loaded.";
constexpr const char* NoPicture = "The page is no picture of a known format";
constexpr const char* Done = "Pixmo::AsyncReadComplete successful";

/// Slow answers are answers.
FaultCase overcome(const char* fault) {
    return {fault, "", Done, "", Doc, Count};
}

FaultCase noContact(const char* fault, const char* message, const char* logged) {
    return {fault, message, logged, "", Doc, 0};
}

/// The page is shown, but how many there are stays unknown.
FaultCase noCount(const char* fault, const char* message, const char* logged) {
    return {fault, message, logged, "", Doc, 0};
}

FaultCase noPage(const char* fault, const char* message, const char* logged, const char* notice) {
    return {fault, message, logged, notice, Doc, Count};
}

/// What the server says in place of a page ends the session.
FaultCase noDocument(const char* fault, const char* message) {
    return {fault, message, Done, "", 0, 0};
}

INSTANTIATE_TEST_SUITE_P(
    InitialContact, Faults,
    testing::Values(
        overcome("delay:IC=100"), overcome("drip:IC=100"), noContact("stall:IC", NoContact, Silent),
        noContact("reset:IC", NoContact, CutShort), noContact("close:IC", NoContact, CutShort),
        noContact("empty:IC", "No response to process.", NoContact),
        noContact("http500:IC", NoContact, Refused), noContact("errtext:IC", Invalid, Invalid),
        noContact("er:IC", Told, NoContact), noContact("wrongkey:IC", Invalid, Invalid),
        noContact("garbage:IC", NoContact, NoContact), noContact("truncated:IC", Invalid, Invalid),
        noContact("redirect:IC", NoContact, Circling), noContact("html:IC", NoContact, NoContact)));

INSTANTIATE_TEST_SUITE_P(
    PageCount, Faults,
    testing::Values(overcome("delay:PC=100"), overcome("drip:PC=100"), noCount("stall:PC", "", Silent),
                    noCount("reset:PC", "", CutShort), noCount("close:PC", "", CutShort),
                    noCount("empty:PC", "", Done), noCount("http500:PC", "", Refused),
                    noCount("errtext:PC", Invalid, Invalid), noCount("er:PC", Told, Done),
                    noCount("wrongkey:PC", Invalid, Invalid), noCount("garbage:PC", "", Done),
                    noCount("truncated:PC", Invalid, Invalid), noCount("redirect:PC", "", Circling),
                    noCount("html:PC", "", Done)));

INSTANTIATE_TEST_SUITE_P(
    Page, Faults,
    testing::Values(overcome("delay:GP=100"), overcome("drip:GP=60000"),
                    noPage("stall:GP", "", Silent,
                           "Page 3 could not be loaded.\nThe server has sent nothing for 0.3 seconds."),
                    noPage("reset:GP", "", CutShort, "The answer ended after"),
                    noPage("close:GP", "", CutShort, "The answer ended after"),
                    noDocument("empty:GP", "No page returned."),
                    noPage("http500:GP", "", Refused, "The server answered 500 Internal Server Error."),
                    noDocument("errtext:GP", "Error: the archive is offline\n  unit 1 does not reply"),
                    noPage("er:GP", Told, Done, NotLoaded),
                    FaultCase{"wrongkey:GP", "", Invalid, NotLoaded, Doc, EitherCount},
                    noPage("garbage:GP", NoPicture, NoPicture, NotLoaded),
                    noPage("truncated:GP", "The TIFF page cannot be opened",
                           "Auto Error Report: VellaneInet.ImageView.DisplayPage", NotLoaded),
                    noPage("redirect:GP", "", Circling, NotLoaded),
                    noPage("html:GP", NoPicture, NoPicture, NotLoaded)));

using FaultBoxes = FaceTest;

TEST_F(FaultBoxes, OfferWhatCanBeDone) {
    announcesErrors = true;
    face->setFaults("http500:IC@2");
    face->load(sample::Deed, 1);
    EXPECT_THAT(answerBox("Retry").buttons, testing::UnorderedElementsAre("Retry", "Cancel"));
    expectBox(NoContact, "Retry");
    EXPECT_TRUE(waitForPage(1)) << "the third attempt succeeds";
}

} // namespace
} // namespace pixmo::behaviour
