#include "faces/com/base/widetext.h"
#include "tests/com/face/facetest.h"

#include <algorithm>
#include <fstream>
#include <thread>
#include <utility>

namespace pixmo::com {
namespace {

class FaceDialogs : public FaceTest {
protected:
    /// Gives the command, lets the user do something in the window of that title, and waits for its end.
    void inDialog(const char* command, const wchar_t* title, const std::function<void(HWND)>& deeds) {
        host->modeless.clear();
        const auto act = [&] {
            EXPECT_TRUE(user::sees([&] { return user::findWindow(Dialog, title); }));
            const HWND dialog = user::findWindow(Dialog, title);
            EXPECT_FALSE(IsWindowEnabled(host->handle()));
            deeds(dialog);
            EXPECT_TRUE(user::sees([&] { return !IsWindow(dialog); }));
        };
        user::act(*host, act, [&] { std::shared_ptr<ImageView>(control)->runCommand(command); });
        EXPECT_TRUE(IsWindowEnabled(host->handle()));
        EXPECT_EQ(host->modeless, (std::vector<bool>{false, true}));
        settle();
    }
    static HWND child(HWND dialog, const wchar_t* className, const wchar_t* text = nullptr) {
        return FindWindowExW(dialog, nullptr, className, text);
    }
    static constexpr const wchar_t* Dialog = L"#32770";
};

TEST_F(FaceDialogs, StandOverTheirHost) {
    load();
    RECT over{};
    GetWindowRect(host->handle(), &over);
    inDialog("ABOUT", L"About Pixmo", [&](HWND dialog) {
        RECT place{};
        GetWindowRect(dialog, &place);
        EXPECT_NEAR(place.left + place.right, over.left + over.right, 2);
        EXPECT_NEAR(place.top + place.bottom, over.top + over.bottom, 2);
        EXPECT_EQ(GetWindow(dialog, GW_OWNER), host->handle());
        EXPECT_TRUE(child(dialog, L"Static", L"Version 1.0.0"));
        user::press(VK_RETURN);
    });
    EXPECT_EQ(GetFocus(), page()) << "the keyboard comes back";
}

TEST_F(FaceDialogs, ThePageIsSaved) {
    load(2);
    const std::filesystem::path file = std::filesystem::temp_directory_path() / "pixmo-face-test.png";
    std::filesystem::remove(file);
    inDialog("SAVEPAGE", L"Save Page As", [&](HWND dialog) {
        EXPECT_TRUE(user::sees([&] { return GetForegroundWindow() == dialog; }));
        user::press('A', 2);
        user::type(file.wstring());
        user::press(VK_RETURN);
    });
    std::ifstream saved(file, std::ios::binary);
    std::string start(4, ' ');
    saved.read(start.data(), 4);
    EXPECT_EQ(start, "\x89PNG");
    saved.close();
    std::filesystem::remove(file);
}

// The host ends the control while one of its windows stands.
TEST_F(FaceDialogs, EndWithTheFace) {
    for (const char* command : {"PAGEGOTO", "ABOUT", "SHOWLOG", "SAVEPAGE"}) {
        SCOPED_TRACE(command);
        load();
        host->modeless.clear();
        const auto end = [&] {
            EXPECT_TRUE(user::sees([&] { return user::findWindow(Dialog); }));
            SendMessageW(host->handle(), FaceHostWindow::EndFace, 0, 0);
            EXPECT_TRUE(user::sees([&] { return !user::findWindow(Dialog); }));
        };
        // Nothing of the face holds the loop any more.
        std::thread user(end);
        std::exchange(control, nullptr)->runCommand(command);
        user.join();
        EXPECT_EQ(host->modeless, (std::vector<bool>{false, true}));
        TearDown();
        SetUp();
    }
}

TEST_F(FaceDialogs, AQuestionOverADialogEndsWithIt) {
    load();
    const std::filesystem::path file = std::filesystem::temp_directory_path() / "pixmo-face-test.png";
    std::ofstream(file, std::ios::binary) << "not to be lost";
    std::thread user([&] {
        EXPECT_TRUE(user::sees([] { return user::findWindow(Dialog, L"Save Page As"); }));
        const HWND dialog = user::findWindow(Dialog, L"Save Page As");
        EXPECT_TRUE(user::sees([&] { return GetForegroundWindow() == dialog; }));
        user::press('A', 2);
        user::type(file.wstring());
        user::press(VK_RETURN);
        EXPECT_TRUE(user::sees([&] { return user::findWindow(Dialog) != dialog; })) << "to replace it?";
        SendMessageW(host->handle(), FaceHostWindow::EndFace, 0, 0);
        EXPECT_TRUE(user::sees([] { return !user::findWindow(Dialog); }));
    });
    std::exchange(control, nullptr)->runCommand("SAVEPAGE");
    user.join();
    EXPECT_EQ(std::filesystem::file_size(file), 14U);
    std::filesystem::remove(file);
}

} // namespace
} // namespace pixmo::com
