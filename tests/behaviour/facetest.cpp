#include "tests/behaviour/facetest.h"

#include <algorithm>
#include <chrono>
#include <fstream>
#include <sstream>
#include <thread>

namespace pixmo::behaviour {

namespace {

constexpr auto Patience = std::chrono::seconds(15);
constexpr auto BetweenLooks = std::chrono::milliseconds(2);

int grayOf(uint32_t pixel) {
    return static_cast<int>(((pixel >> 16 & 0xFF) * 11 + (pixel >> 8 & 0xFF) * 16 + (pixel & 0xFF) * 5) / 32);
}

int share(const Picture& picture, const std::function<bool(uint32_t)>& counts) {
    const auto count = std::count_if(picture.pixels.begin(), picture.pixels.end(), counts);
    return static_cast<int>(count * 1000 / static_cast<int64_t>(picture.pixels.size()));
}

} // namespace

FaceTest::FaceTest()
    : face(std::make_unique<FaceDriver>()),
      logFile_(std::filesystem::temp_directory_path() / "behaviour.log") {}

void FaceTest::SetUp() {
    std::filesystem::remove(logFile_);
    face->forgetSettings();
    face->setFaults("");
    createControl();
}

void FaceTest::TearDown() {
    while (const auto box = face->answer({"Abort", "Cancel", "OK"}))
        ADD_FAILURE() << "an unexpected message box:\n" << box->text;
    EXPECT_EQ(face->dialog(), "") << "left open";
    EXPECT_FALSE(face->menu()) << "a menu is left open";
    face->setFaults("");
    face->set("LogFileName", std::string());
    face->destroy();
    EXPECT_EQ(face->pageFiles(), 0);
    EXPECT_TRUE(announcesErrors || log().find("Auto Error Report") == std::string::npos) << log();
}

void FaceTest::createControl() {
    face->create();
    face->set("EngineAddress", face->engineAddress());
    face->set("FetchDelay", 1);
    face->set("ResizeDelay", 1);
    face->set("LogFileName", logFile_.string());
    expectFocus("lvrImage");
    ASSERT_TRUE(waitUntilIdle());
    face->takeEvents();
}

bool FaceTest::waitFor(const std::function<bool()>& condition) {
    const auto end = std::chrono::steady_clock::now() + Patience;
    while (!condition()) {
        if (std::chrono::steady_clock::now() > end)
            return false;
        std::this_thread::sleep_for(BetweenLooks);
    }
    return true;
}

bool FaceTest::waitForPage(int16_t page) {
    return waitFor([&] { return number("Page") == page && face->isPageDisplayed() && face->isIdle(); });
}

bool FaceTest::waitUntilIdle() {
    return waitFor([this] { return face->isIdle(); });
}

void FaceTest::open(int16_t page, int32_t docID) {
    face->load(docID, page);
    ASSERT_TRUE(waitForPage(page)) << face->notice();
}

int FaceTest::zoom() {
    const std::string text = face->description();
    const size_t comma = text.rfind(", ");
    return comma == std::string::npos ? 0 : std::stoi(text.substr(comma + 2));
}

ShownButton FaceTest::button(const std::string& key) {
    for (const ShownButton& shown : face->toolbar())
        if (shown.key == key)
            return shown;
    ADD_FAILURE() << "no button " << key;
    return {};
}

std::vector<std::string> FaceTest::enabledButtons() {
    std::vector<std::string> keys;
    for (const ShownButton& shown : face->toolbar())
        if (!shown.separator && shown.visible && shown.enabled)
            keys.push_back(shown.key);
    return keys;
}

std::vector<std::string> FaceTest::events(const std::vector<std::string>& names) {
    std::vector<std::string> kept;
    for (const std::string& line : face->takeEvents())
        if (std::find(names.begin(), names.end(), line.substr(0, line.find(' '))) != names.end())
            kept.push_back(line);
    return kept;
}

void FaceTest::expectBox(const std::string& text, const std::string& button) {
    EXPECT_THAT(answerBox(button).text, testing::HasSubstr(text));
}

ShownBox FaceTest::answerBox(const std::string& button) {
    std::optional<ShownBox> box;
    EXPECT_TRUE(waitFor([&] { return (box = face->answer({button})).has_value(); })) << "no message box";
    return box.value_or(ShownBox());
}

void FaceTest::expectFocus(const std::string& name) {
    EXPECT_TRUE(waitFor([&] { return face->focus() == name; }))
        << "the focus is not at '" << name << "' but at '" << face->focus() << "'";
}

void FaceTest::expectDialog(const std::string& name) {
    ASSERT_TRUE(waitFor([&] { return face->dialog() == name; })) << "'" << face->dialog() << "' is open";
}

void FaceTest::expectNoDialog() {
    ASSERT_TRUE(waitFor([&] { return face->dialog().empty() && face->focus() == "lvrImage"; }))
        << "'" << face->dialog() << "' is open, the focus is at '" << face->focus() << "'";
}

std::string FaceTest::log() const {
    std::ifstream file(logFile_, std::ios::binary);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

std::vector<ShownEntry> FaceTest::openMenu(Menu which) {
    which == Menu::Toolbar ? face->openToolbarMenu() : face->openPageMenu();
    EXPECT_TRUE(waitFor([this] { return face->menu().has_value(); })) << "no menu";
    return face->menu().value_or(std::vector<ShownEntry>());
}

void FaceTest::closeMenu() {
    face->press(key::Escape);
    ASSERT_TRUE(waitFor([this] { return !face->menu(); }));
}

void FaceTest::choose(Menu which, const std::string& text) {
    openMenu(which);
    face->choose(text);
    ASSERT_TRUE(waitFor([this] { return !face->menu(); })) << text;
}

int darkShare(const Picture& picture, int below) {
    return share(picture, [below](uint32_t pixel) { return grayOf(pixel) < below; });
}

int grayShare(const Picture& picture) {
    const uint32_t background = picture.at(0, 0);
    return share(picture, [background](uint32_t pixel) {
        return pixel != background && pixel != 0 && pixel != 0xFFFFFF;
    });
}

} // namespace pixmo::behaviour
