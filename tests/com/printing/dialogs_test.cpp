#include "core/diag/settings.h"
#include "faces/com/ports/settingsstore.h"
#include "tests/com/face/facetest.h"
#include "tests/com/printing/testprinter.h"

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

} // namespace
} // namespace pixmo::com
