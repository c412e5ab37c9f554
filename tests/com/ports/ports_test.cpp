#include "core/base/ansi.h"
#include "core/base/files.h"
#include "core/raster/raster.h"
#include "faces/com/ports/clipboard.h"
#include "faces/com/ports/clock.h"
#include "faces/com/ports/codepage.h"
#include "faces/com/ports/eventloop.h"
#include "faces/com/ports/messagebox.h"
#include "faces/com/ports/scratchfolder.h"
#include "faces/com/ports/settingsstore.h"
#include "faces/com/ports/timers.h"
#include "tests/com/ports/waiting.h"

#include <aclapi.h>
#include <cstdio>
#include <gtest/gtest.h>

namespace pixmo::com {
namespace {

namespace fs = std::filesystem;

/// How many others than its owner and the system may do something with it.
int strangersAt(const fs::path& path) {
    PACL list = nullptr;
    PSID owner = nullptr;
    PSECURITY_DESCRIPTOR description = nullptr;
    std::wstring name = path.wstring();
    EXPECT_EQ(GetNamedSecurityInfoW(name.data(), SE_FILE_OBJECT,
                                    OWNER_SECURITY_INFORMATION | DACL_SECURITY_INFORMATION, &owner, nullptr,
                                    &list, nullptr, &description),
              DWORD{ERROR_SUCCESS});
    int strangers = 0;
    for (DWORD i = 0; list && i < list->AceCount; ++i) {
        void* entry = nullptr;
        GetAce(list, i, &entry);
        auto* const who = &static_cast<ACCESS_ALLOWED_ACE*>(entry)->SidStart;
        if (!EqualSid(who, owner) && !IsWellKnownSid(who, WinLocalSystemSid))
            ++strangers;
    }
    LocalFree(description);
    return list ? strangers : -1;
}

TEST(ComScratchFolder, RemovesWhatDeadProcessesLeftAndNothingElse) {
    const fs::path temporary = fs::temp_directory_path();
    const fs::path left = temporary / "pixmo-pages-left";
    fs::create_directories(left);
    writeFile(left / ".lock", {});
    writeFile(left / "page1.dat", std::vector<uint8_t>(10));
    const fs::path young = temporary / "pixmo-pages-young";
    fs::create_directories(young);
    const fs::path elsewhere = temporary / "elsewhere";
    fs::create_directories(elsewhere);
    writeFile(elsewhere / ".lock", {});

    fs::path own;
    {
        ScratchFolder scratch;
        ScratchFolder second;
        own = scratch.path();
        EXPECT_EQ(own, scratch.path());
        EXPECT_NE(own, second.path());
        EXPECT_TRUE(fs::exists(own)) << "the second folder is no reason to remove the first";
        EXPECT_FALSE(fs::exists(left));
        EXPECT_TRUE(fs::exists(young)) << "it may be about to be locked";
        EXPECT_TRUE(fs::exists(elsewhere / ".lock"));
        writeFile(own / "page1.dat", std::vector<uint8_t>(10));
    }
    EXPECT_FALSE(fs::exists(own));
}

TEST(ComScratchFolder, IsTheUsersAlone) {
    ScratchFolder scratch;
    EXPECT_EQ(strangersAt(scratch.path()), 0);
    EXPECT_GT(strangersAt("C:\\windows"), 0) << "others are not told apart here";
}

TEST(ComSettingsStore, KeepsTextsWhereTheHostRuntimeDoes) {
    const SettingsStore store;
    EXPECT_EQ(store.GetSetting("Settings", "Absent", "TRUE"), "TRUE");
    const std::string odd = "a, b; \"c\" = \u00E9 %41 \\ \U0001F5BA";
    SettingsStore().SaveSetting("dlgThumbs.", "Left", odd);
    SettingsStore().SaveSetting("Settings", "Empty", "");
    EXPECT_EQ(store.GetSetting("dlgThumbs.", "Left", ""), odd);
    EXPECT_EQ(store.GetSetting("Settings", "Empty", "x"), "");
    DWORD size = 0;
    EXPECT_EQ(RegGetValueW(HKEY_CURRENT_USER,
                           L"Software\\VB and VBA Program Settings\\QuorvisImaging Pixmo\\dlgThumbs.",
                           L"Left", RRF_RT_REG_SZ, nullptr, nullptr, &size),
              LSTATUS{ERROR_SUCCESS});
}

/// By then, an interval of 10 ms or less has ended twice.
void waitForOtherTimers() {
    int fired = 0;
    const auto witness = Timers().createTimer([&] { ++fired; });
    witness->setInterval(10);
    witness->start();
    ASSERT_TRUE(waitFor([&] { return fired == 3; }));
}

/// Nothing is handled meanwhile.
void waitUntilATimerIsDue() {
    const DWORD began = GetTickCount();
    while ((HIWORD(GetQueueStatus(QS_TIMER)) & QS_TIMER) == 0 && GetTickCount() - began < 10'000)
        Sleep(1);
}

TEST(ComTimers, MayEndInTheirCallback) {
    std::unique_ptr<Timer> timer;
    int fired = 0;
    timer = Timers().createTimer([&] {
        ++fired;
        timer.reset();
    });
    timer->setInterval(1);
    EXPECT_FALSE(timer->isRunning());
    timer->start();
    EXPECT_TRUE(timer->isRunning());
    EXPECT_TRUE(waitFor([&] { return fired > 0 && !timer; }));
    waitForOtherTimers();
    EXPECT_EQ(fired, 1);
}

TEST(ComTimers, FireAgainUntilTheyAreStopped) {
    int fired = 0;
    const auto timer = Timers().createTimer([&] { ++fired; });
    timer->setInterval(10);
    timer->start();
    ASSERT_TRUE(waitFor([&] { return fired == 3; }));
    waitUntilATimerIsDue();
    timer->stop();
    EXPECT_FALSE(timer->isRunning());
    waitForOtherTimers();
    EXPECT_EQ(fired, 3);
    EXPECT_EQ(timer->interval(), 10);
}

TEST(ComEventLoop, SleepsUntilTheEventThatItWaitsFor) {
    bool done = false;
    const auto timer = Timers().createTimer([&] { done = true; });
    timer->setInterval(200);
    timer->start();
    int looks = 0;
    EventLoop().pumpUntil([&] {
        ++looks;
        return done;
    });
    EXPECT_LT(looks, 100) << "it spins";
}

TEST(ComEventLoop, EndsWithTheProgram) {
    PostQuitMessage(7);
    EventLoop().pumpUntil([] { return false; });
    EventLoop().handlePending();
    MSG message{};
    ASSERT_TRUE(PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE))
        << "the host's loop must hear of it";
    EXPECT_EQ(message.wParam, 7U);
}

TEST(ComEventLoop, HandlesWhatHasCome) {
    int fired = 0;
    const auto timer = Timers().createTimer([&] { ++fired; });
    timer->setInterval(10);
    timer->start();
    waitUntilATimerIsDue();
    EventLoop().handlePending();
    EXPECT_GT(fired, 0);
}

struct ClipboardCase {
    PixelFormat format;
    std::vector<uint8_t> pixels; ///< 3 x 2
    WORD depth;
    std::vector<uint8_t> lowestRow;
};

TEST(ComClipboard, KeepsDepthColoursAndResolution) {
    const std::vector<ClipboardCase> cases = {
        {PixelFormat::Bilevel, {0x40, 0xA0}, 1, {0xA0, 0, 0, 0}},
        {PixelFormat::Gray, {1, 2, 3, 4, 5, 6}, 8, {4, 5, 6, 0}},
        {PixelFormat::Rgb,
         {1, 2, 3, 4, 5, 6, 7, 8, 9, 11, 12, 13, 14, 15, 16, 17, 18, 19},
         24,
         {13, 12, 11, 16, 15, 14, 19, 18, 17, 0, 0, 0}}};
    for (const ClipboardCase& asked : cases) {
        Raster raster = makeRaster(asked.format, 3, 2);
        const size_t rowSize = packedRowSize(asked.format, 3);
        for (int32_t y = 0; y < 2; ++y)
            std::copy_n(asked.pixels.begin() + static_cast<std::ptrdiff_t>(rowSize) * y, rowSize,
                        raster.row(y).begin());
        raster.xResolution = raster.yResolution = 254;
        raster.bilevelColours = {0xFFEEDD, 0x010203};
        Clipboard().setPicture(raster);
        ASSERT_TRUE(OpenClipboard(nullptr));
        const HANDLE block = GetClipboardData(CF_DIB);
        ASSERT_NE(block, nullptr);
        const auto* const info = static_cast<const BITMAPINFO*>(GlobalLock(block));
        EXPECT_EQ(info->bmiHeader.biBitCount, asked.depth);
        EXPECT_EQ(info->bmiHeader.biWidth, 3);
        EXPECT_EQ(info->bmiHeader.biHeight, 2);
        EXPECT_EQ(info->bmiHeader.biXPelsPerMeter, 10'000);
        const auto* bits = reinterpret_cast<const uint8_t*>(info + 1) - sizeof(RGBQUAD);
        if (asked.depth == 1) {
            EXPECT_EQ(bits[0], 0xDD);
            EXPECT_EQ(bits[6], 0x01);
        }
        bits += info->bmiHeader.biClrUsed * sizeof(RGBQUAD);
        EXPECT_EQ(std::vector<uint8_t>(bits, bits + asked.lowestRow.size()), asked.lowestRow);
        GlobalUnlock(block);
        CloseClipboard();
    }
}

TEST(ComCodePage, IsTheSystems) {
    useSystemCodePage();
    ASSERT_EQ(GetACP(), 1252U) << "the bench has another code page";
    EXPECT_EQ(toAnsi("\u20AC\u00E9\u0081"), "\x80\xE9\x81");
    EXPECT_EQ(fromAnsi("\x99"), "\u2122");
}

TEST(ComClock, SpeaksAsTheUserHasSetIt) {
    const std::string now = Clock().generalDate();
    unsigned month = 0;
    unsigned day = 0;
    unsigned year = 0;
    ASSERT_EQ(std::sscanf(now.c_str(), "%u/%u/%u ", &month, &day, &year), 3) << now;
    SYSTEMTIME facts{};
    GetLocalTime(&facts);
    EXPECT_EQ(year, facts.wYear);
    EXPECT_EQ(month, facts.wMonth);
    EXPECT_TRUE(now.ends_with("AM") || now.ends_with("PM")) << now;
    EXPECT_LE(now.size(), 30U);
}

/// A host that counts.
class Host : public FaceHost {
public:
    bool userMode() const override { return true; }
    Colour ambientBackColor() const override { return {}; }
    Font ambientFont() const override { return {}; }
    bool rightToLeft() const override { return false; }
    void propertyChanged(const std::string&) override {}
    HWND ownerWindow() const override { return nullptr; }
    void enableModeless(bool enable) override { modal += enable ? -1 : 1; }
    void activated() override {}
    bool mayWriteFiles() const override { return true; }

    int modal = 0;
};

/// The box that stands, once it does.
HWND findBox() {
    return FindWindowW(L"#32770", L"Pixmo");
}

TEST(ComMessageBox, ShowsTheButtonsWithTheSafestAhead) {
    Host host;
    const auto link = std::make_shared<FaceLink>(host);
    MessageBox box(link);
    struct Case {
        Buttons buttons;
        int pressed;
        Answer answer;
        int safest;
    };
    for (const Case& asked :
         {Case{Buttons::Ok, IDOK, Answer::Ok, IDOK}, Case{Buttons::OkCancel, IDOK, Answer::Ok, IDCANCEL},
          Case{Buttons::RetryCancel, IDRETRY, Answer::Retry, IDCANCEL},
          Case{Buttons::AbortRetryIgnore, IDIGNORE, Answer::Ignore, IDABORT},
          Case{Buttons::YesNo, IDYES, Answer::Yes, IDNO}}) {
        const auto presser = Timers().createTimer([&] {
            if (const HWND shown = findBox()) {
                EXPECT_EQ(host.modal, 1);
                const HWND safest = GetDlgItem(shown, asked.safest);
                EXPECT_EQ(GetWindowLongW(safest, GWL_STYLE) & BS_TYPEMASK, BS_DEFPUSHBUTTON);
                SendMessageW(shown, WM_COMMAND, static_cast<WPARAM>(asked.pressed), 0);
            }
        });
        presser->setInterval(20);
        presser->start();
        EXPECT_EQ(box.ask("Will it?", asked.buttons, Icon::Question, ""), asked.answer);
        EXPECT_EQ(host.modal, 0);
    }
}

TEST(ComMessageBox, GoesWithItsFace) {
    Host host;
    const auto link = std::make_shared<FaceLink>(host);
    MessageBox box(link);
    const auto ender = Timers().createTimer([&] {
        if (findBox() && link->host())
            link->end();
    });
    ender->setInterval(20);
    ender->start();
    EXPECT_EQ(box.ask("Will it?", Buttons::RetryCancel, Icon::None, ""), Answer::Cancel);
    EXPECT_EQ(host.modal, 0);
    EXPECT_EQ(box.ask("Again?", Buttons::YesNo, Icon::None, ""), Answer::No) << "nothing is shown any more";
}

TEST(ComMessageBox, AStandInAnswersForTheUser) {
    Host host;
    MessageBox box(std::make_shared<FaceLink>(host));
    MessageBox::setStandIn(
        [](const std::string& text, Buttons, Icon) { return text == "Sure?" ? Answer::Yes : Answer::No; });
    EXPECT_EQ(box.ask("Sure?", Buttons::YesNo, Icon::None, ""), Answer::Yes);
    MessageBox::setStandIn({});
}

} // namespace
} // namespace pixmo::com
