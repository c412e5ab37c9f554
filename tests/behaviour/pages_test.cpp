#include "tests/behaviour/facetest.h"

namespace pixmo::behaviour {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using PagesTest = FaceTest;

TEST_F(PagesTest, StartEmpty) {
    EXPECT_EQ(face->readOut(), "Page 0 of 0");
    EXPECT_EQ(face->description(), "Page 0 of 0");
    EXPECT_EQ(face->status(), "");
    EXPECT_EQ(face->notice(), "");
    EXPECT_FALSE(face->isPageDisplayed());
    EXPECT_EQ(darkShare(face->picture(), 40), 0);
    const int before = face->requests("GP");
    for (const int each : {key::PageDown, key::PageUp, key::Home, key::End, key::Down, key::Left})
        face->press(each);
    EXPECT_EQ(face->readOut(), "Page 0 of 0");
    EXPECT_EQ(face->requests("GP"), before);
    EXPECT_THAT(events({"PageChanged"}), IsEmpty());
}

TEST_F(PagesTest, TellTheHostInOrder) {
    open(3);
    EXPECT_THAT(events({"PageChanged"}), ElementsAre("PageChanged 0 0", "PageChanged 1001 3"));
    face->set("Page", 4);
    ASSERT_TRUE(waitForPage(4));
    face->set("DocID", sample::Fax);
    ASSERT_TRUE(waitForPage(1));
    EXPECT_EQ(face->readOut(), "Page 1 of 3");
    face->set("DocID", sample::Fax);
    face->call("Clear");
    EXPECT_THAT(events({"PageChanged"}), ElementsAre("PageChanged 1001 4", "PageChanged 0 0",
                                                     "PageChanged 1002 1", "PageChanged 0 0"));
    EXPECT_EQ(number("DocID"), 0);
    EXPECT_EQ(face->readOut(), "Page 0 of 0");
    EXPECT_FALSE(face->isPageDisplayed());
}

TEST_F(PagesTest, PageNumbersAreThoseOfTheDocument) {
    struct Case {
        int16_t asked;
        int16_t shown;
    };
    for (const Case& each : {Case{0, 1}, Case{-3, 3}, Case{3, 3}}) {
        face->load(sample::Fax, each.asked);
        EXPECT_TRUE(waitForPage(each.shown)) << each.asked << ": " << page();
    }
    face->set("Page", 99);
    EXPECT_TRUE(waitForPage(3));
}

TEST_F(PagesTest, ComeFromTheCacheTheSecondTime) {
    const int before = face->requests("GP");
    open(1);
    face->press(key::PageDown);
    ASSERT_TRUE(waitForPage(2));
    face->press(key::PageUp);
    ASSERT_TRUE(waitForPage(1));
    EXPECT_EQ(face->requests("GP") - before, 2);
    face->call("clearCache");
    face->press(key::PageDown);
    ASSERT_TRUE(waitForPage(2));
    EXPECT_EQ(face->requests("GP") - before, 3);
}

TEST_F(PagesTest, NoneOfManyQuickTurnsIsFetchedButTheLast) {
    open(1);
    face->set("FetchDelay", 60'000);
    const int before = face->requests("GP");
    for (int turn = 0; turn < 4; ++turn)
        face->press(key::PageDown);
    EXPECT_EQ(page(), 5);
    EXPECT_FALSE(face->isPageDisplayed());
    EXPECT_EQ(face->notice(), "Loading page 5\u2026");
    EXPECT_EQ(face->requests("GP") - before, 0);
    face->set("Page", 5);
    ASSERT_TRUE(waitForPage(5)) << "the host does not wait";
    EXPECT_EQ(face->requests("GP") - before, 1);
}

TEST_F(PagesTest, AFormerPageIsVeiledWhileTheNextComes) {
    open(1);
    const Picture shown = face->picture();
    face->setFaults("stall:GP");
    face->press(key::PageDown);
    ASSERT_TRUE(waitFor([this] { return button("CANCEL").enabled; }));
    EXPECT_EQ(face->readOut(), "Page 2 of 12");
    EXPECT_EQ(face->notice(), "Loading page 2\u2026");
    EXPECT_EQ(face->status(), "Loading\u2026");
    EXPECT_EQ(face->description(), face->notice());
    EXPECT_LT(darkShare(face->picture(), 60), darkShare(shown, 60)) << "as if the former were the new one";
    face->clickButton("CANCEL");
    EXPECT_TRUE(waitUntilIdle());
    EXPECT_THAT(face->notice(), testing::StartsWith("Page 2 could not be loaded."));
    EXPECT_LT(darkShare(face->picture(), 60), darkShare(shown, 60)) << "nor now";
    face->setFaults("");
    face->press(key::PageUp);
    ASSERT_TRUE(waitForPage(1));
    EXPECT_EQ(face->picture(), shown);
}

TEST_F(PagesTest, PropertiesKeepWhatTheyTake) {
    announcesErrors = true;
    struct Case {
        const char* property;
        Value value;
        Value kept;
    };
    for (const Case& each :
         {Case{"PublicKey", std::string(), std::string("OrrelKeyset qFlow")}, Case{"BorderStyle", 7, 0}}) {
        SCOPED_TRACE(each.property);
        face->set(each.property, each.value);
        EXPECT_EQ(face->get(each.property), each.kept);
        EXPECT_EQ(face->lastError().number, 380);
        EXPECT_THAT(face->lastError().source, testing::HasSubstr(each.property));
    }
    face->set("Delimiter", std::string("  |x"));
    EXPECT_EQ(face->get("Delimiter"), Value(std::string("|")));
    face->set("LogFileName", std::string());
    EXPECT_EQ(face->get("LogFileName"), Value(std::string())) << "no log any more";
}

} // namespace
} // namespace pixmo::behaviour
