#include "tests/control/logreader.h"

#include "core/cipher/clsrc4.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace pixmo {
namespace {

using scripted::ScriptedControl;
using testing::ElementsAre;
using testing::HasSubstr;
using Pages = std::vector<std::pair<int32_t, int32_t>>;

const std::string NoContact = "VellaneInet.ImageView.DoInitialContact reports the following error:\r\n"
                              "1 Initial Contact failed or was cancelled.";

class Session : public testing::Test {
protected:
    Session() {
        control.view->events().PageChanged.connect(
            [this](int32_t document, int32_t page) { pages.emplace_back(document, page); });
    }

    void finishPage(int32_t docID, int16_t page) {
        control.reader->finish(control.tag("GP", docID, page), ScriptedControl::pageFile());
    }
    int32_t document() const { return std::get<int32_t>(control.view->property("DocID")); }
    int16_t page() const { return std::get<int16_t>(control.view->property("Page")); }
    void setPage(int16_t number) { control.view->setProperty("Page", number); }
    void next() { control.view->tlbImage_ButtonClick("PAGENEXT"); }
    std::vector<std::string> started() const {
        std::vector<std::string> tags;
        for (const AsyncRequest& request : control.reader->requests)
            tags.push_back(request.PropertyName);
        return tags;
    }
    std::vector<std::string> texts() const {
        std::vector<std::string> result;
        for (const auto& question : control.messageBox->questions)
            result.push_back(question.text);
        return result;
    }
    /// The state after anything that ended a session: empty, at rest, no file left.
    void expectEmpty() {
        EXPECT_EQ(document(), 0);
        EXPECT_EQ(control.view->txtPage(), "Page 0 of 0");
        EXPECT_FALSE(control.view->lvrImage().hasPicture());
        EXPECT_TRUE(control.view->isIdle());
        EXPECT_EQ(control.scratch->fileCount(), 0U);
    }
    void expectNextLoadWorks() {
        const bool contacted = control.view->session().state().contacted;
        if (!contacted)
            control.answerContactWith("IC\u00B7OK");
        control.view->LoadDocumentByDocID(77, 1);
        control.reader->finish(control.tag("PC", 77), control.encipher("PC\u00B7OK\u00B7"
                                                                       "2"));
        finishPage(77, 1);
        EXPECT_TRUE(control.view->isPageDisplayed());
        EXPECT_EQ(control.view->txtPage(), "Page 1 of 2");
        EXPECT_FALSE(control.eventLoop->ranDry);
    }

    Pages pages;
    ScriptedControl control;
};

TEST_F(Session, LoadsADocument) {
    LogReader log(control);
    control.answerContactWith("IC\u00B7OK\u00B7CP'PrintFee'='2 $'\u00B7CP'Mood'='good'");
    control.view->LoadDocumentByDocID(5, 3);
    EXPECT_THAT(started(), ElementsAre("IC", control.tag("PC", 5), control.tag("GP", 5, 3)));
    EXPECT_EQ(control.view->viewNotice(), "Loading page 3\u2026");
    EXPECT_EQ(control.viewSurface->shownPointer, 13);
    EXPECT_TRUE(control.view->tlbImage().find("CANCEL")->Enabled);
    control.reader->finish(control.tag("PC", 5), control.encipher("PC\u00B7OK\u00B7"
                                                                  "12"));
    finishPage(5, 3);
    EXPECT_TRUE(control.view->isPageDisplayed());
    EXPECT_EQ(control.view->viewNotice(), "");
    EXPECT_EQ(control.view->txtPage(), "Page 3 of 12");
    EXPECT_EQ(control.viewSurface->shownPointer, 0);
    EXPECT_FALSE(control.view->tlbImage().find("CANCEL")->Enabled);
    EXPECT_EQ(std::get<std::string>(control.view->property("PrintFee")), "2 $");
    EXPECT_EQ(pages, (Pages{{0, 0}, {5, 3}}));
    EXPECT_THAT(texts(), ElementsAre());

    const std::string messages = log.messages();
    size_t at = 0;
    for (const std::string& expected : std::vector<std::string>{
             "[4] \u240D\u240A" + std::string(42, 'v') + "\n[4] LoadDocumentByDocID - 5\n[4] " +
                 std::string(42, '^') + "\n[4] Clearing temp files.\n[4]    -->no cache files to remove!\n",
             std::string("[4] Initial Contact Request: http://engine.test/page?IC\u00B7") +
                 "4F7272656C4B65797365742071466C6F77\u00B7",
             "[4] Pixmo::AsyncReadComplete reports IC, 6, OK\n",
             "[4] Pixmo::AsyncReadComplete processing status code EndDownloadData\n",
             "[4] Processing IC Resp: '", "[4]      Property 'PrintFee' changed to '2 $'.\n",
             "[4]      Unknown property 'Mood' changed to 'good'.\n",
             "[4] Pixmo::AsyncReadComplete successful\n[4]      InitialContact: OK\n",
             "[4] " + std::string(42, '*') + "\n[4] PageCount Requested for DocID 5: \n[4]      ",
             "[4] " + std::string(39, '*') +
                 "\n[4] Fetching Page from Server\n[4]      Name: GP\u00B7"
                 "5\u00B7"
                 "3\n" +
                 "[4]      Reqeust: http://engine.test/page?",
             "[4]      ->Data is for the current document.\n[4] Processing PC Resp: ",
             "[4] Processing GP Resp: "}) {
        const size_t found = messages.find(expected, at);
        ASSERT_NE(found, std::string::npos) << expected << "\nnot found, in order, in\n" << messages;
        at = found;
    }
}

TEST_F(Session, RequestsTravelAsAnsiBytes) {
    control.open(5, 1, 1);
    const auto& requests = control.reader->requests;
    EXPECT_THAT(requests[0].Target,
                testing::StartsWith("http://engine.test/page?IC%B74F7272656C4B65797365742071466C6F77%B7"));
    EXPECT_EQ(requests[0].Type, AsyncType::ByteArray);
    EXPECT_EQ(requests[0].Options, 16);
    EXPECT_EQ(requests[2].Type, AsyncType::File);
    const std::string body = requests[2].Target.substr(std::string("http://engine.test/page?").size());
    EXPECT_EQ(body.find_first_not_of("0123456789ABCDEF"), std::string::npos);
    EXPECT_EQ(clsRC4().DecryptString(body, "OrrelKeyset qFlow", true), "GP\u00B7jdoe\u00B7WS-0042\u00B7"
                                                                       "5\u00B7"
                                                                       "1");
}

TEST_F(Session, NumbersOfPages) {
    control.open(5, 0, 4);
    EXPECT_EQ(page(), 1);
    finishPage(5, 1);
    setPage(9);
    EXPECT_EQ(page(), 4);
    setPage(-3);
    EXPECT_EQ(page(), 1);
    control.view->LoadDocumentByDocID(6, -32768);
    EXPECT_EQ(page(), 32767) << "no upper correction while the count is unknown";
    control.reader->finish(control.tag("PC", 6), control.encipher("PC\u00B7OK\u00B7"
                                                                  "32767"));
    EXPECT_EQ(control.view->txtPage(), "Page 32767 of 32767");
    control.view->LoadDocumentByDocID(0, 1);
    EXPECT_EQ(pages.back(), (std::pair<int32_t, int32_t>{0, 0}));
    expectEmpty();
}

TEST_F(Session, ADesignedFormShowsNoDocument) {
    control.container->inUserMode = false;
    control.view->LoadDocumentByDocID(5, 1);
    EXPECT_EQ(control.view->property("DocID"), PropertyValue(int32_t{0}));
    EXPECT_TRUE(control.reader->requests.empty());
}

TEST_F(Session, OnlyTheLastOfQuickPageChangesIsFetched) {
    control.open(5, 1, 12);
    finishPage(5, 1);
    const size_t before = control.reader->requests.size();
    next();
    next();
    next();
    EXPECT_EQ(control.view->txtPage(), "Page 4 of 12");
    EXPECT_EQ(control.view->viewNotice(), "Loading page 4\u2026");
    EXPECT_EQ(control.reader->requests.size(), before);
    control.timers->fireRunning();
    ASSERT_EQ(control.reader->requests.size(), before + 1);
    EXPECT_EQ(started().back(), control.tag("GP", 5, 4));
    setPage(4);
    EXPECT_EQ(control.reader->requests.size(), before + 1) << "a pending transfer is not started again";
    next();
    setPage(1);
    control.timers->fireRunning();
    EXPECT_EQ(control.reader->requests.size(), before + 1) << "a page shown at once ends the delayed fetch";
    EXPECT_TRUE(control.view->isPageDisplayed());
    finishPage(5, 4);
    EXPECT_EQ(control.view->txtPage(), "Page 1 of 12") << "a page left meanwhile goes to the cache only";
    const int decoded = control.decoder->decoded;
    setPage(4);
    EXPECT_TRUE(control.view->isPageDisplayed());
    EXPECT_EQ(control.decoder->decoded, decoded + 1);
    EXPECT_EQ(control.reader->requests.size(), before + 1);
}

TEST_F(Session, DataOfAnotherDocumentIsDiscarded) {
    LogReader log(control);
    control.open(5, 1, 12);
    control.view->LoadDocumentByDocID(6, 1);
    finishPage(5, 1);
    EXPECT_THAT(log.messages(),
                HasSubstr("[2] DATA DISCARDED. Current DocID is 6 and returned data was for DocID 5\n"));
    EXPECT_FALSE(control.view->isPageDisplayed());
    EXPECT_EQ(control.scratch->fileCount(), 1U) << "only the log is left";
    control.view->Clear();
    control.reader->finish(control.tag("GP", 6, 1), ScriptedControl::pageFile());
    EXPECT_FALSE(control.view->lvrImage().hasPicture());
    EXPECT_THAT(texts(), ElementsAre());
}

TEST_F(Session, PagesThatAreNone) {
    struct Case {
        const char* what;
        std::string data;
        std::vector<std::string> texts;
        bool cleared;
    };
    const Case cases[] = {
        {"empty", "", {"No page returned."}, true},
        {"text of an error", "The ARCHIVE has an eRRor", {"The ARCHIVE has an eRRor"}, true},
        {"error answer",
         control.encipher("ER\u00B7"
                          "2042\u00B7"
                          "DocServer\u00B7"
                          "Document not found."),
         {"The server has sent the following error:\r\n2042 DocServer Document not found."},
         false},
        {"small answer of another key", clsRC4().EncryptString("ER|1|a|b", "other", true), {}, false},
        {"no picture",
         std::string(5000, 'x'),
         {"VellaneInet.ImageView.DisplayPage reports the following error:\r\n481 Invalid picture"},
         false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        control.messageBox->questions.clear();
        control.open(5, 2, 3);
        finishPage(5, 2);
        setPage(1);
        control.reader->finish(control.tag("GP", 5, 1), c.data);
        EXPECT_EQ(texts(), c.texts);
        EXPECT_FALSE(control.view->isPageDisplayed());
        EXPECT_EQ(control.view->viewNotice(), c.cleared ? "" : "Page 1 could not be loaded.");
        if (c.cleared)
            expectEmpty();
        EXPECT_TRUE(control.view->isIdle());
        control.messageBox->questions.clear();
        expectNextLoadWorks();
        EXPECT_THAT(texts(), ElementsAre());
    }
    control.view->Clear();
    EXPECT_EQ(control.scratch->fileCount(), 0U);
}

TEST_F(Session, AFailedTransferIsDiagnosedThroughTheLogOnly) {
    LogReader log(control);
    control.open(5, 1, 3);
    control.reader->fail(control.tag("GP", 5, 1), "HTTP status 500");
    EXPECT_THAT(texts(), ElementsAre());
    EXPECT_EQ(document(), 5);
    EXPECT_EQ(control.view->viewNotice(), "Page 1 could not be loaded.\nHTTP status 500");
    EXPECT_EQ(control.view->statusText(), "Transfer failed: HTTP status 500");
    const std::string target = control.reader->requests.back().Target;
    EXPECT_THAT(log.messages(),
                HasSubstr("[4] Pixmo.AsyncReadComplete returned an ERROR\n"
                          "[4] Pixmo.AsyncReadComplete Begin AsyncProp Detail\n"
                          "[4]      PropertyName = GP\u00B7"
                          "5\u00B7"
                          "1\n"
                          "[4]      Status = HTTP status 500\n[4]      StatusCode = 0\n[4]      Target = " +
                          target +
                          "\n[4]      BytesRead = 0\n[4]      BytesMax = 0\n[4]      AsyncType = 1\n"
                          "[4] Pixmo.AsyncReadComplete End AsyncProp Detail\n"
                          "[4] Pixmo::AsyncReadComplete successful\n"));
    setPage(1);
    EXPECT_EQ(control.view->statusText(), "Loading\u2026");
    finishPage(5, 1);
    EXPECT_TRUE(control.view->isPageDisplayed());
}

TEST_F(Session, OtherStatusCodesAndTagsAreOnlyReported) {
    LogReader log(control);
    control.open(5, 1, 3);
    AsyncProperty record;
    record.PropertyName = control.tag("GP", 5, 1);
    record.StatusCode = 5;
    control.reader->complete(record);
    EXPECT_THAT(
        log.messages(),
        HasSubstr("[4] Pixmo::AsyncReadComplete - No handler for this statuscode - DownloadingData\n"));
    record.StatusCode = 6;
    record.PropertyName = "XX\u00B7"
                          "5";
    control.reader->complete(record);
    record.PropertyName = "PP\u00B7"
                          "5";
    control.reader->complete(record);
    EXPECT_THAT(texts(), ElementsAre("UNHANDLED REQUEST TYPE: XX\u00B7"
                                     "5"));
}

TEST_F(Session, DevelopersMayOpenTheErrorPage) {
    control.view->transfers().inIDE = true;
    control.messageBox->answers = {Answer::Yes};
    control.open(5, 1, 3);
    control.reader->fail(control.tag("GP", 5, 1), "no");
    const std::string target = control.reader->requests.back().Target;
    ASSERT_EQ(control.messageBox->questions.size(), 1U);
    const auto& question = control.messageBox->questions[0];
    EXPECT_EQ(question.text, "AsyncProp indicates that the server returned an error for\r\n'" + target +
                                 "'\r\nWould you like to open the page in IE?");
    EXPECT_EQ(question.title, "Pixmo.AsyncReadComplete");
    EXPECT_EQ(question.icon, Icon::Critical);
    EXPECT_THAT(control.container->programs,
                ElementsAre("c:\\program files\\internet explorer\\iexplore.exe " + target));
}

TEST_F(Session, PageCountsThatAreNone) {
    control.open(5, 1, 3);
    const std::string prefix = "VellaneInet.ImageView.ProcessServerResponse reports the following error:\r\n";
    for (const auto& [plain, text] : std::vector<std::pair<std::string, std::string>>{
             {"PC\u00B7OK\u00B7"
              "40000",
              "6 Overflow"},
             {"PC\u00B7OK\u00B7many", "13 Type mismatch"},
             {"ER\u00B7"
              "7\u00B7x",
              "9 Subscript out of range"},
             {"nonsense", "-2147219484 The server has returned an invalid response."}}) {
        control.messageBox->questions.clear();
        control.reader->finish(control.tag("PC", 5), control.encipher(plain));
        EXPECT_THAT(texts(), ElementsAre(prefix + text));
        EXPECT_EQ(control.messageBox->questions[0].buttons, Buttons::RetryCancel);
    }
    control.messageBox->questions.clear();
    control.reader->finish(control.tag("PC", 5), "");
    EXPECT_THAT(texts(), ElementsAre());
    EXPECT_EQ(control.view->txtPage(), "Page 1 of 3");

    int32_t number = 0;
    int32_t context = 0;
    std::string source;
    std::string description;
    std::string file;
    control.view->GetLastError(number, source, description, file, context);
    EXPECT_EQ(number, error_number::InvalidResponse);
    EXPECT_EQ(source, "cClientHandlers.ProcessResponse.VellaneInet.ImageView.ProcessServerResponse");
}

TEST_F(Session, TheServerSetsPropertiesWithTheHostsChecks) {
    control.answerContactWith(
        "IC\u00B7OK\u00B7CP'encbytes'='-1'\u00B7CP'PrintCoverSheet'='True'\u00B7CP'PrintPageNums'='0'"
        "\u00B7CP'EngineAddress'='http://other.test/'\u00B7CP'PublicKey'='k2'");
    control.view->LoadDocumentByDocID(5, 1);
    EXPECT_EQ(std::get<int32_t>(control.view->property("EncBytes")), -1);
    EXPECT_TRUE(std::get<bool>(control.view->property("PrintCoverSheet")));
    EXPECT_FALSE(std::get<bool>(control.view->property("PrintPageNums")));
    EXPECT_THAT(control.reader->requests.back().Target, testing::StartsWith("http://other.test/?"));
    control.reader->finish(control.tag("PC", 5), control.encipher("PC\u00B7OK\u00B7"
                                                                  "3"));
    control.reader->finish(control.tag("GP", 5, 1), ScriptedControl::pageFile("100x200", -1));
    EXPECT_TRUE(control.view->isPageDisplayed());

    control.reader->finish(control.tag("PC", 5), control.encipher("PC\u00B7OK\u00B7"
                                                                  "3\u00B7CP'PublicKey'=''"));
    EXPECT_EQ(std::get<std::string>(control.view->property("PublicKey")), "k2");
    EXPECT_THAT(texts(), ElementsAre(HasSubstr("380 Invalid property value")));
}

TEST_F(Session, ContactThatFails) {
    control.eventLoop->post([this] { control.reader->fail("IC", "connection refused"); });
    control.view->LoadDocumentByDocID(5, 1);
    EXPECT_THAT(texts(), ElementsAre(NoContact));
    EXPECT_EQ(control.messageBox->questions[0].buttons, Buttons::RetryCancel);
    EXPECT_THAT(started(), ElementsAre("IC"));
    EXPECT_EQ(document(), 5);

    control.messageBox->answers = {Answer::Retry};
    control.eventLoop->post([this] { control.reader->fail("IC", "connection refused"); });
    control.messageBox->whileAsked = [this] { control.answerContactWith("IC\u00B7OK"); };
    control.view->LoadDocumentByDocID(5, 1);
    EXPECT_EQ(started().back(), control.tag("GP", 5, 1)) << "the retried contact lets the load go on";
    control.messageBox->questions.clear();
    expectNextLoadWorks();
}

TEST_F(Session, ABadRequestIsNotSent) {
    control.view->setProperty("Delimiter", std::string());
    control.view->LoadDocumentByDocID(5, 1);
    EXPECT_THAT(texts(), ElementsAre("VellaneInet.ImageView.DoInitialContact reports the following error:\r\n"
                                     "-2147219494 Invalid delimiter length."));
    EXPECT_TRUE(control.reader->requests.empty());
    control.messageBox->questions.clear();
    control.view->LoadDocumentByDocID(-5, 1);
    EXPECT_EQ(control.messageBox->questions.size(), 1U);
}

TEST_F(Session, InvalidDocumentsAreRefusedBeforeAnythingIsSent) {
    control.open(5, 1, 3);
    const size_t before = control.reader->requests.size();
    control.view->LoadDocumentByDocID(-5, 1);
    EXPECT_THAT(texts(), ElementsAre("VellaneInet.ImageView.GetPageCount reports the following error:\r\n"
                                     "1 Invalid DocID of '-5'.",
                                     "VellaneInet.ImageView.FetchPageFromServer reports the following "
                                     "error:\r\n1 Invalid DocID of '-5'."));
    EXPECT_EQ(control.messageBox->questions[1].buttons, Buttons::AbortRetryIgnore);
    EXPECT_EQ(control.reader->requests.size(), before);
    int32_t number = 0;
    int32_t context = 0;
    std::string source;
    std::string text;
    control.view->GetLastError(number, source, text, text, context);
    EXPECT_EQ(source, "Vellane.Pixmo.FetchPageFromServer.VellaneInet.ImageView.FetchPageFromServer");
}

// The wait for the initial contact lets everything else happen.

TEST_F(Session, CancelEndsTheWait) {
    LogReader log(control);
    control.eventLoop->post([this] {
        EXPECT_EQ(control.view->viewNotice(), "Contacting the server\u2026");
        control.view->tlbImage_ButtonClick("CANCEL");
    });
    control.view->LoadDocumentByDocID(5, 1);
    EXPECT_THAT(texts(), ElementsAre(NoContact));
    EXPECT_THAT(control.reader->cancelled, ElementsAre("IC"));
    EXPECT_THAT(log.messages(), HasSubstr("[4] **>>>CancelDownloads CANCELLED REQUEST: IC<<<**\n"));
    EXPECT_THAT(log.messages(), HasSubstr("[4]      InitialContact: Cancelled\n"));
    control.messageBox->questions.clear();
    expectNextLoadWorks();
}

TEST_F(Session, ClearEndsTheWait) {
    control.eventLoop->post([this] { control.view->Clear(); });
    control.view->LoadDocumentByDocID(5, 1);
    EXPECT_THAT(texts(), ElementsAre(NoContact));
    expectEmpty();
    expectNextLoadWorks();
}

TEST_F(Session, ASecondLoadReplacesTheOneThatWaits) {
    control.eventLoop->post([this] {
        control.answerContactWith("IC\u00B7OK");
        control.view->LoadDocumentByDocID(6, 2);
    });
    control.view->LoadDocumentByDocID(5, 1);
    EXPECT_EQ(document(), 6);
    EXPECT_EQ(page(), 2);
    EXPECT_THAT(started(), ElementsAre("IC", "IC", control.tag("PC", 6), control.tag("GP", 6, 2)));
    EXPECT_THAT(texts(), ElementsAre());
}

TEST_F(Session, PagesChosenDuringTheWaitComeFirst) {
    control.eventLoop->post([this] { setPage(4); });
    control.answerContactWith("IC\u00B7OK");
    control.view->LoadDocumentByDocID(5, 1);
    EXPECT_THAT(started(), ElementsAre("IC", control.tag("PC", 5), control.tag("GP", 5, 4)));
}

TEST_F(Session, TheControlMayEndWhileItWaits) {
    control.eventLoop->post([this] { control.destroy(); });
    const std::weak_ptr<ImageView> view = control.view;
    control.view->LoadDocumentByDocID(5, 1);
    EXPECT_TRUE(view.expired());
    EXPECT_THAT(texts(), ElementsAre());
    EXPECT_THAT(control.reader->cancelled, ElementsAre("IC"));
    EXPECT_EQ(control.scratch->fileCount(), 0U);
    EXPECT_FALSE(control.eventLoop->ranDry);
}

TEST_F(Session, TheControlMayEndInItsOwnEventsAndMessages) {
    const std::weak_ptr<ImageView> view = control.view;
    control.view->events().PageChanged.connect([this](int32_t document, int32_t) {
        if (document == 5)
            control.destroy();
    });
    control.open(5, 1, 3);
    finishPage(5, 1);
    EXPECT_TRUE(view.expired());

    ScriptedControl other;
    const std::weak_ptr<ImageView> otherView = other.view;
    other.open(5, 1, 3);
    other.messageBox->whileAsked = [&] { other.destroy(); };
    other.messageBox->answers = {Answer::Retry};
    other.reader->finish(other.tag("GP", 5, 1), "");
    EXPECT_TRUE(otherView.expired());
    EXPECT_EQ(other.scratch->fileCount(), 0U);
}

TEST_F(Session, ADocumentLoadedWhenTheClearedOneIsAnnouncedStays) {
    control.open(5, 1, 3);
    control.view->events().PageChanged.connect([this, once = true](int32_t document, int32_t) mutable {
        if (document == 0 && std::exchange(once, false))
            control.view->LoadDocumentByDocID(6, 2);
    });
    control.view->LoadDocumentByDocID(7, 1);
    EXPECT_EQ(document(), 6);
    finishPage(6, 2);
    EXPECT_TRUE(control.view->isPageDisplayed());
    EXPECT_THAT(texts(), ElementsAre());
}

TEST_F(Session, PageFilesAreRemoved) {
    LogReader log(control);
    control.open(5, 1, 3);
    finishPage(5, 1);
    setPage(3);
    finishPage(5, 3);
    EXPECT_EQ(control.scratch->fileCount(), 3U);
    const std::string file = control.view->session().state().pages.file(3).string();
    control.view->clearCache();
    EXPECT_THAT(log.messages(), HasSubstr("[4]    -->removing temp file " + file + "\n"));
    EXPECT_EQ(control.scratch->fileCount(), 1U);
    setPage(1);
    finishPage(5, 1);
    EXPECT_TRUE(control.view->isPageDisplayed());
    control.destroy();
    EXPECT_EQ(control.scratch->fileCount(), 1U);
}

TEST_F(Session, BookmarksNameDocumentAndPage) {
    Pages bookmarks;
    control.view->events().BookmarkRequested.connect(
        [&](int32_t document, int32_t page) { bookmarks.emplace_back(document, page); });
    control.open(5, 2, 3);
    finishPage(5, 2);
    control.view->requestBookmark();
    EXPECT_EQ(bookmarks, (Pages{{5, 2}}));
    control.view->setProperty("DocID", int32_t{5});
    EXPECT_EQ(pages.size(), 2U) << "the same document is not loaded again";
    control.view->setProperty("DocID", int32_t{8});
    EXPECT_EQ(started().back(), control.tag("GP", 8, 1));
}

TEST_F(Session, ThumbnailPagesGoToTheirWindow) {
    class Thumbs : public ThumbnailWindow {
    public:
        void PostImageToThumbnail(int16_t page, const std::filesystem::path&, int32_t encBytes) override {
            posted.emplace_back(page, encBytes);
        }
        void failThumbnail(int16_t page, const std::string& reason) override {
            failed.push_back(std::to_string(page) + " " + reason);
        }
        void reset() override { ++resets; }
        Pages posted;
        std::vector<std::string> failed;
        int resets = 0;
    } thumbs;
    control.open(5, 1, 3);
    finishPage(5, 1);
    control.view->session().setThumbnailWindow(&thumbs);
    int16_t page = 2;
    control.view->session().LoadPage(page, false, true);
    finishPage(5, 2);
    EXPECT_EQ(thumbs.posted, (Pages{{2, 1640}}));
    EXPECT_EQ(control.view->txtPage(), "Page 1 of 3");
    EXPECT_TRUE(control.view->isPageDisplayed());
    control.view->session().LoadPage(page = 3, false, true);
    control.reader->finish(control.tag("GP", 5, 3), "Error: no such page");
    EXPECT_EQ(thumbs.failed, (std::vector<std::string>{"3 Error: no such page"}));
    EXPECT_TRUE(control.messageBox->questions.empty());
    EXPECT_TRUE(control.view->isPageDisplayed());
    control.view->Clear();
    EXPECT_EQ(thumbs.resets, 1);
    control.view->session().setThumbnailWindow(nullptr);
}

} // namespace
} // namespace pixmo
