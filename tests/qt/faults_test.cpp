#include "tests/qt/viewfixture.h"

#include <QAction>
#include <QTemporaryDir>

namespace pixmo::qt {
namespace {

/// What a fault of the server leads to.
struct FaultCase {
    const char* fault;
    const char* message; ///< in a message box; "" for none
    const char* logged;  ///< a line of the log holds it
    const char* notice;  ///< in place of the page; "" when the page is shown, or no document is left
    int document;        ///< current one afterwards
    int pageCount;       ///< afterwards
};

void PrintTo(const FaultCase& faultCase, std::ostream* out) {
    *out << faultCase.fault;
}

class Faults : public ViewFixture, public testing::WithParamInterface<FaultCase> {
protected:
    Faults() {
        view->setStallTimeout(300);
        view->setLogFileName(logFile);
    }

    QString log() const {
        QFile file(logFile);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return QString::fromUtf8(file.readAll());
    }

    QTemporaryDir folder;
    const QString logFile = folder.filePath(QStringLiteral("pixmo.log"));
};

TEST_P(Faults, AreSeenAndOvercome) {
    const FaultCase& expected = GetParam();
    engine.setFaults(expected.fault);
    view->LoadDocumentByDocID(sample::ManyPages, 3);
    ASSERT_TRUE(waitUntilIdle());

    const QString message = QString::fromUtf8(expected.message);
    EXPECT_EQ(boxes.texts().isEmpty(), message.isEmpty()) << qPrintable(boxes.texts().join(u'\n'));
    EXPECT_TRUE(message.isEmpty() || boxes.texts().value(0).contains(message))
        << qPrintable(boxes.texts().join(u'\n'));
    EXPECT_TRUE(log().contains(QString::fromUtf8(expected.logged))) << qPrintable(log());
    EXPECT_EQ(view->docID(), expected.document);
    EXPECT_EQ(view->pageCount(), expected.pageCount);
    const QString notice = QString::fromUtf8(expected.notice);
    EXPECT_TRUE(view->notice().contains(notice) && view->notice().isEmpty() == notice.isEmpty())
        << qPrintable(view->notice());
    EXPECT_LE(pageFiles(), 1);
    EXPECT_FALSE(view->action(QStringLiteral("CANCEL"))->isEnabled());

    engine.setFaults("");
    const qsizetype before = boxes.texts().size();
    view->LoadDocumentByDocID(sample::OtherDocument, 2);
    EXPECT_TRUE(waitForPage(2));
    EXPECT_EQ(view->readOut(), QStringLiteral("Page 2 of 3"));
    EXPECT_EQ(boxes.texts().size(), before);
    EXPECT_EQ(pageFiles(), 1);
    view->Clear();
    EXPECT_EQ(pageFiles(), 0);
}

constexpr int Doc = sample::ManyPages;
constexpr int Count = sample::ManyPagesCount;

constexpr const char* NoContact = "Initial Contact failed or was cancelled.";
constexpr const char* Invalid = "The server has returned an invalid response.";
constexpr const char* Told = "2050 Engine The engine was told to fail.";
constexpr const char* Silent = "Status = The server has sent nothing for 0.3 seconds.";
constexpr const char* Refused = "Status = The server answered 500 Internal Server Error.";
constexpr const char* Circling = "Status = The server redirects without end.";
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
        noContact("reset:IC", NoContact, "Status = The answer ended after 5 of 10 bytes."),
        noContact("close:IC", NoContact, "Status = The answer ended after 5 of 10 bytes."),
        noContact("empty:IC", "No response to process.", NoContact),
        noContact("http500:IC", NoContact, Refused), noContact("errtext:IC", Invalid, Invalid),
        noContact("er:IC", Told, NoContact), noContact("wrongkey:IC", Invalid, Invalid),
        noContact("garbage:IC", NoContact, NoContact), noContact("truncated:IC", Invalid, Invalid),
        noContact("redirect:IC", NoContact, Circling), noContact("html:IC", NoContact, NoContact)));

INSTANTIATE_TEST_SUITE_P(
    PageCount, Faults,
    testing::Values(overcome("delay:PC=100"), overcome("drip:PC=100"), noCount("stall:PC", "", Silent),
                    noCount("reset:PC", "", "Status = The answer ended after 8 of 16 bytes."),
                    noCount("close:PC", "", "Status = The answer ended after 8 of 16 bytes."),
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
                    noPage("reset:GP", "", "Status = The answer ended after", "The answer ended after"),
                    noPage("close:GP", "", "Status = The answer ended after", "The answer ended after"),
                    noDocument("empty:GP", "No page returned."),
                    noPage("http500:GP", "", Refused, "The server answered 500 Internal Server Error."),
                    noDocument("errtext:GP", "Error: the archive is offline\n  unit 1 does not reply"),
                    noPage("er:GP", Told, Done, NotLoaded), noPage("wrongkey:GP", "", Invalid, NotLoaded),
                    noPage("garbage:GP", NoPicture, NoPicture, NotLoaded),
                    noPage("truncated:GP", "The TIFF page cannot be opened",
                           "Auto Error Report: VellaneInet.ImageView.DisplayPage", NotLoaded),
                    noPage("redirect:GP", "", Circling, NotLoaded),
                    noPage("html:GP", NoPicture, NoPicture, NotLoaded)));

} // namespace
} // namespace pixmo::qt
