#include "core/diag/settings.h"
#include "faces/com/ports/messagebox.h"
#include "faces/com/ports/settingsstore.h"
#include "faces/com/printing/printers.h"
#include "tests/com/face/facetest.h"
#include "tests/com/printing/testprinter.h"

#include <atomic>
#include <gtest/gtest.h>

namespace pixmo::com {
namespace {

/// Opens the print dialog of a loaded document by its command; the user's deeds follow.
class ComPrintDialog : public FaceTest {
protected:
    void SetUp() override {
        SettingsStore().SaveSetting(setting::PrintShowMore.section, setting::PrintShowMore.key, "FALSE");
        FaceTest::SetUp();
        load();
        test_printer::takeJob();
    }

    void print(const std::function<void()>& deeds) {
        user::act(
            *host,
            [&] {
                ASSERT_TRUE(user::sees([] { return dialog() && GetForegroundWindow() == dialog(); }));
                deeds();
            },
            [this] { control->runCommand("PRINT"); });
        settle();
    }

    static HWND dialog() { return user::findWindow(L"#32770", L"Print Document"); }
    /// The dialog's control with that caption.
    static HWND find(const wchar_t* caption) { return FindWindowExW(dialog(), nullptr, nullptr, caption); }
    /// Where the window manager puts a new window is not settled at once: buttons are pressed wherever they
    /// are.
    static void click(const wchar_t* caption) { PostMessageW(find(caption), BM_CLICK, 0, 0); }
    static void focus(HWND control) {
        PostMessageW(dialog(), WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(control), TRUE);
        EXPECT_TRUE(user::sees([control] {
            GUITHREADINFO facts{};
            facts.cbSize = sizeof facts;
            return GetGUIThreadInfo(GetWindowThreadProcessId(control, nullptr), &facts) &&
                   facts.hwndFocus == control;
        }));
    }
    static bool becomesChecked(const wchar_t* caption) {
        return user::sees(
            [caption] { return SendMessageW(find(caption), BM_GETCHECK, 0, 0) == BST_CHECKED; });
    }
    static LONG height() {
        RECT place{};
        GetWindowRect(dialog(), &place);
        return place.bottom - place.top;
    }
    static size_t pagesPrinted() {
        const std::string job = test_printer::takeJob();
        size_t count = 0;
        for (size_t at = job.find("%%Page:"); at != std::string::npos; at = job.find("%%Page:", at + 1))
            ++count;
        return count;
    }
};

TEST_F(ComPrintDialog, EnterPrintsTheCurrentPage) {
    print([] {
        EXPECT_TRUE(find(L"Pixmo Test Printer"));
        EXPECT_TRUE(find(L"More Options"));
        EXPECT_FALSE(IsWindowVisible(find(L"Page Range")));
        user::press(VK_RETURN);
    });
    EXPECT_EQ(pagesPrinted(), 1U);
}

TEST_F(ComPrintDialog, EscapeAndTheFrameCancel) {
    print([] { user::press(VK_ESCAPE); });
    print([] { PostMessageW(dialog(), WM_CLOSE, 0, 0); });
    EXPECT_EQ(pagesPrinted(), 0U);
}

TEST_F(ComPrintDialog, MoreOptionsEnlargeTheDialogAndAreRemembered) {
    print([] {
        const LONG small = height();
        click(L"More Options");
        EXPECT_TRUE(user::sees([] { return find(L"Less Options") != nullptr; }));
        EXPECT_TRUE(user::sees([small] { return height() > small + 100; }));
        EXPECT_TRUE(user::sees([] { return IsWindowVisible(find(L"Page Range")) != FALSE; }));
        EXPECT_FALSE(IsWindowVisible(find(L"Pages to print"))) << "only with the selected pages";
        user::press(VK_ESCAPE);
    });
    print([] {
        EXPECT_TRUE(find(L"Less Options"));
        user::press(VK_ESCAPE);
    });
}

TEST_F(ComPrintDialog, TypedPagesAndCopiesArePrinted) {
    SettingsStore().SaveSetting(setting::PrintShowMore.section, setting::PrintShowMore.key, "TRUE");
    print([] {
        const HWND from = FindWindowExW(dialog(), nullptr, L"Edit", nullptr);
        focus(from);
        user::type(L"4");
        EXPECT_TRUE(user::sees([&] { return user::textOf(from) == L"4"; }));
        const HWND to = FindWindowExW(dialog(), from, L"Edit", nullptr);
        focus(to);
        user::type(L"2");
        EXPECT_TRUE(user::sees([&] { return user::textOf(to) == L"2"; }));
        EXPECT_TRUE(becomesChecked(L"Page")) << "who types a page means the range";
        user::press('P', 4);
    });
    EXPECT_EQ(pagesPrinted(), 3U);
}

TEST_F(ComPrintDialog, SelectedPagesComeFromTheList) {
    SettingsStore().SaveSetting(setting::PrintShowMore.section, setting::PrintShowMore.key, "TRUE");
    print([] {
        click(L"&Selected Pages");
        const HWND list = FindWindowExW(dialog(), nullptr, L"ListBox", nullptr);
        EXPECT_TRUE(user::sees([&] { return IsWindowVisible(list) != 0; }));
        EXPECT_EQ(SendMessageW(list, LB_GETCOUNT, 0, 0), sample::ManyPagesCount);
        focus(list);
        user::press(VK_HOME);
        user::press(VK_DOWN, 1);
        EXPECT_TRUE(user::sees([&] { return SendMessageW(list, LB_GETSELCOUNT, 0, 0) == 2; }));
        click(L"&Print");
    });
    EXPECT_EQ(pagesPrinted(), 2U);
}

TEST_F(ComPrintDialog, TheCurrentViewAsksForTheCurrentPage) {
    SettingsStore().SaveSetting(setting::PrintShowMore.section, setting::PrintShowMore.key, "TRUE");
    static std::atomic<int> asked;
    asked = 0;
    MessageBox::setStandIn([](const std::string&, Buttons, Icon) {
        ++asked;
        return Answer::Cancel;
    });
    print([] {
        click(L"&All Pages");
        EXPECT_TRUE(becomesChecked(L"&All Pages"));
        click(L"Print &Current View Only");
        EXPECT_TRUE(user::sees([] { return asked == 1; }));
        EXPECT_TRUE(becomesChecked(L"&Fit to Page"));
        EXPECT_TRUE(becomesChecked(L"&All Pages"));
        user::press(VK_ESCAPE);
    });
    MessageBox::setStandIn({});
}

TEST_F(ComPrintDialog, PrintersAreTheSystemsDialog) {
    print([] {
        click(L"P&rinters...");
        EXPECT_TRUE(user::sees([] { return user::findWindow(L"#32770", L"Print Setup") != nullptr; }));
        EXPECT_FALSE(IsWindowEnabled(dialog()));
        SendMessageW(user::findWindow(L"#32770", L"Print Setup"), WM_COMMAND, IDOK, 0);
        EXPECT_TRUE(user::sees([] { return IsWindowEnabled(dialog()) != 0; }));
        user::press(VK_ESCAPE);
    });
}

TEST_F(ComPrintDialog, ThePreviewTurnsItsSheets) {
    SettingsStore().SaveSetting(setting::PrintShowMore.section, setting::PrintShowMore.key, "TRUE");
    print([] {
        click(L"&All Pages");
        click(L"Pre&view...");
        const auto preview = [] { return user::findWindow(L"#32770", L"Print Preview"); };
        const auto shows = [&](const wchar_t* text) {
            return user::sees([&] { return FindWindowExW(preview(), nullptr, nullptr, text) != nullptr; });
        };
        ASSERT_TRUE(user::sees([&] { return preview() != nullptr; }));
        EXPECT_TRUE(shows(L"Sheet 1 of 12"));
        user::press(VK_NEXT);
        EXPECT_TRUE(shows(L"Sheet 2 of 12"));
        user::press(VK_END);
        EXPECT_TRUE(shows(L"Sheet 12 of 12"));
        EXPECT_FALSE(IsWindowEnabled(FindWindowExW(preview(), nullptr, nullptr, L"&Next")));
        user::press('P', 4);
        EXPECT_TRUE(shows(L"Sheet 11 of 12"));
        user::press(VK_ESCAPE);
        EXPECT_TRUE(user::sees([&] { return preview() == nullptr; }));
        user::press(VK_ESCAPE);
    });
}

} // namespace
} // namespace pixmo::com
