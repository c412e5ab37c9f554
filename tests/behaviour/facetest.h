#pragma once

#include "tests/behaviour/facedriver.h"

#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <ostream>

namespace pixmo::behaviour {

/// The documents of the samples that tests ask for.
namespace sample {
inline constexpr int32_t Deed = 1001; ///< 12 letter pages of 1 bit, 300 dpi
inline constexpr int16_t DeedPages = 12;
inline constexpr int32_t Fax = 1002; ///< 3 pages
inline constexpr int16_t FaxPages = 3;
inline constexpr int32_t Map = 1004; ///< one page in colour
} // namespace sample

/// A new user's control before the engine, without faults. What a test does not announce fails it: message
/// boxes, windows left open, errors in the log.
class FaceTest : public testing::Test {
protected:
    FaceTest();
    void SetUp() override;
    void TearDown() override;

    /// The host has set what it must.
    void createControl();

    /// Asks until it holds; false when it does not within long patience.
    static bool waitFor(const std::function<bool()>& condition);
    bool waitForPage(int16_t page);
    bool waitUntilIdle();
    void open(int16_t page = 1, int32_t docID = sample::Deed);

    int16_t page() { return static_cast<int16_t>(number("Page")); }
    int32_t number(const std::string& property) { return std::get<int32_t>(face->get(property)); }
    /// Percent, as told; 0 without a page.
    int zoom();
    ShownButton button(const std::string& key);
    /// Keys of the buttons that can be pressed.
    std::vector<std::string> enabledButtons();
    /// The events since the last call whose line begins with one of the names.
    std::vector<std::string> events(const std::vector<std::string>& names);

    /// Waits for a message box and answers it; its text holds this.
    void expectBox(const std::string& text, const std::string& button);
    ShownBox answerBox(const std::string& button);
    /// The system may hand the keyboard over a little later than it hands a click.
    void expectFocus(const std::string& name);
    /// Waits for the window of that name.
    void expectDialog(const std::string& name);
    void expectNoDialog();
    std::string log() const;

    enum class Menu : uint8_t { Toolbar, Page };
    std::vector<ShownEntry> openMenu(Menu which);
    void closeMenu();
    void choose(Menu which, const std::string& text);

    /// Errors may stand in the log.
    bool announcesErrors = false;
    std::unique_ptr<FaceDriver> face;

private:
    std::filesystem::path logFile_;
};

/// How many thousandths of the picture are darker than this gray.
int darkShare(const Picture& picture, int below);
/// Neither black nor white nor the colour of its corner.
int grayShare(const Picture& picture);

inline void PrintTo(const Picture& picture, std::ostream* out) {
    *out << picture.width << "x" << picture.height;
}

} // namespace pixmo::behaviour
