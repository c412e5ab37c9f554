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

TEST_F(FaceDialogs, ImageInformationIsCopied) {
    load();
    inDialog("IMAGEINFO", L"Image Information", [](HWND dialog) {
        const std::wstring text = user::textOf(child(dialog, L"Edit"));
        EXPECT_EQ(text.substr(0, text.find(L'\r')), L"Image Size: 8.50\" x 11.00\"");
        EXPECT_NE(text.find(L"DocID: 1001"), std::wstring::npos);
        user::press('C', 4);
        EXPECT_TRUE(user::sees([] { return IsClipboardFormatAvailable(CF_UNICODETEXT) != 0; }));
        user::press(VK_ESCAPE);
    });
    ASSERT_TRUE(OpenClipboard(nullptr));
    const HANDLE block = GetClipboardData(CF_UNICODETEXT);
    EXPECT_EQ(std::wstring(static_cast<const wchar_t*>(GlobalLock(block))).substr(0, 11), L"Image Size:");
    GlobalUnlock(block);
    CloseClipboard();
}

TEST_F(FaceDialogs, TheLogIsSearched) {
    load();
    const std::filesystem::path file = std::filesystem::temp_directory_path() / "pixmo-face-test.log";
    std::filesystem::remove(file);
    control->setProperty("LogFileName", toUtf8(file.wstring()));
    std::ofstream(file, std::ios::binary) << "first Needle\r\nsecond\r\nthird needle\r\n";
    inDialog("SHOWLOG", L"Log", [](HWND dialog) {
        const HWND search = child(dialog, L"Edit");
        const HWND text = FindWindowExW(dialog, search, L"Edit", nullptr);
        const auto selected = [&] {
            DWORD from = 0;
            DWORD to = 0;
            SendMessageW(text, EM_GETSEL, reinterpret_cast<WPARAM>(&from), reinterpret_cast<LPARAM>(&to));
            return user::textOf(text).substr(from, to - from) + std::to_wstring(from);
        };
        user::type(L"needle");
        user::press(VK_RETURN);
        EXPECT_TRUE(user::sees([&] { return selected() == L"Needle6"; })) << "from the top again";
        user::press(VK_F3);
        EXPECT_TRUE(user::sees([&] { return selected() == L"needle28"; }));
        user::press(VK_F3, 1);
        EXPECT_TRUE(user::sees([&] { return selected() == L"Needle6"; }));
        user::press('F', 2);
        user::type(L"zzz");
        user::press(VK_RETURN);
        EXPECT_TRUE(user::sees([&] { return child(dialog, L"Static", L"Not found"); }));
        SetWindowPos(dialog, nullptr, 0, 0, 640, 420, SWP_NOMOVE | SWP_NOZORDER);
        user::press(VK_ESCAPE);
    });
    inDialog("SHOWLOG", L"Log", [](HWND dialog) {
        RECT place{};
        GetWindowRect(dialog, &place);
        EXPECT_EQ(place.right - place.left, 640) << "the size is kept";
        PostMessageW(dialog, WM_CLOSE, 0, 0);
    });
    control->setProperty("LogFileName", std::string());
    std::filesystem::remove(file);
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
