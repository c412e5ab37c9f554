#include "core/base/files.h"
#include "core/drawing/programpicture.h"
#include "faces/qt/ports/eventloop.h"
#include "faces/qt/ports/messagebox.h"
#include "faces/qt/ports/scratchfolder.h"
#include "faces/qt/ports/settingsstore.h"
#include "faces/qt/ports/timers.h"
#include "faces/qt/windows/programicon.h"
#include "faces/qt/windows/virtualkeys.h"
#include "tests/qt/boxwatcher.h"
#include "tests/qt/waiting.h"

#include "faces/qt/widget/imageview.h"

#include <QAbstractButton>
#include <QFileInfo>
#include <QSettings>
#include <QThread>
#include <csignal>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace pixmo::qt {
namespace {

namespace fs = std::filesystem;

/// The folder of a process that was killed.
fs::path leftFolder() {
    std::array<int, 2> ends{};
    EXPECT_EQ(pipe(ends.data()), 0);
    const pid_t child = fork();
    if (child == 0) {
        ScratchFolder scratch;
        const std::string path = scratch.path().string();
        writeFile(scratch.path() / "page1.dat", std::vector<uint8_t>(10));
        static_cast<void>(write(ends[1], path.data(), path.size()));
        raise(SIGKILL);
    }
    close(ends[1]);
    std::string path(4096, '\0');
    path.resize(static_cast<size_t>(std::max<ssize_t>(0, read(ends[0], path.data(), path.size()))));
    close(ends[0]);
    waitpid(child, nullptr, 0);
    return path;
}

TEST(QtScratchFolder, RemovesWhatDeadProcessesLeftAndNothingElse) {
    const fs::path left = leftFolder();
    ASSERT_TRUE(fs::exists(left / "page1.dat"));
    const fs::path elsewhere = fs::temp_directory_path() / "elsewhere";
    fs::create_directories(elsewhere);
    writeFile(elsewhere / ".lock", {});
    const fs::path link = fs::temp_directory_path() / "pixmo-pages-link";
    fs::create_directory_symlink(elsewhere, link);
    const fs::path noLock = fs::temp_directory_path() / "pixmo-pages-young";
    fs::create_directories(noLock);

    fs::path own;
    {
        ScratchFolder scratch;
        ScratchFolder second;
        own = scratch.path();
        EXPECT_EQ(own, scratch.path());
        EXPECT_NE(own, second.path());
        struct stat facts {};
        stat(own.c_str(), &facts);
        EXPECT_EQ(facts.st_mode & 0777U, 0700U);
        EXPECT_FALSE(fs::exists(left));
        EXPECT_TRUE(fs::exists(own));
        EXPECT_TRUE(fs::exists(elsewhere / ".lock"));
        EXPECT_TRUE(fs::exists(noLock));
    }
    EXPECT_FALSE(fs::exists(own));
}

TEST(QtSettingsStore, KeepsTextsInTheUsersIniFile) {
    SettingsStore store;
    EXPECT_EQ(store.GetSetting("Settings", "Absent", "TRUE"), "TRUE");
    const std::string odd = "a, b; \"c\" = \u00E9 %41 \\";
    store.SaveSetting("dlgThumbs.", "Left", odd);
    store.SaveSetting("Settings", "BigButtons", "FALSE");
    EXPECT_EQ(SettingsStore().GetSetting("dlgThumbs.", "Left", ""), odd);
    const QString file =
        qEnvironmentVariable("XDG_CONFIG_HOME") + QStringLiteral("/QuorvisImaging/Pixmo.ini");
    EXPECT_EQ(QSettings(file, QSettings::IniFormat).value(QStringLiteral("Settings/BigButtons")).toString(),
              QStringLiteral("FALSE"));
}

TEST(QtSettingsStore, IsWrittenByTheControlThatEnds) {
    { const ImageView view; }
    EXPECT_EQ(SettingsStore().GetSetting("Settings", "GrayScale", ""), "TRUE");
}

TEST(QtTimers, MayEndInTheirCallback) {
    std::unique_ptr<pixmo::Timer> timer;
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
    EXPECT_EQ(fired, 1);
}

// In a thread of its own, for the interface's is woken by whatever happens on the screen.
TEST(QtEventLoop, SleepsUntilTheEventThatItWaitsFor) {
    bool done = false;
    int looks = 0;
    const std::unique_ptr<QThread> waiting(QThread::create([&] {
        QTimer::singleShot(200, [&] { done = true; });
        EventLoop().pumpUntil([&] {
            ++looks;
            return done;
        });
    }));
    waiting->start();
    waiting->wait();
    EXPECT_TRUE(done);
    EXPECT_LT(looks, 20) << "it spins";
}

TEST(QtEventLoop, EndsWithTheProgram) {
    QTimer::singleShot(0, [] {
        QTimer::singleShot(0, [] { QCoreApplication::quit(); });
        EventLoop().pumpUntil([] { return false; });
    });
    EXPECT_EQ(QCoreApplication::exec(), 0);
}

struct BoxCase {
    Buttons buttons;
    QMessageBox::StandardButton pressed;
    Answer answer;
    Answer safest;
};

TEST(QtMessageBox, ShowsPlainTextWithTheSafestButtonAhead) {
    ImageView view;
    MessageBox box(std::make_shared<FaceLink>(FaceLink{&view, &view}));
    BoxWatcher watcher;
    const std::array<BoxCase, 5> cases = {{
        {Buttons::Ok, QMessageBox::Ok, Answer::Ok, Answer::Ok},
        {Buttons::OkCancel, QMessageBox::Ok, Answer::Ok, Answer::Cancel},
        {Buttons::RetryCancel, QMessageBox::Retry, Answer::Retry, Answer::Cancel},
        {Buttons::AbortRetryIgnore, QMessageBox::Ignore, Answer::Ignore, Answer::Abort},
        {Buttons::YesNo, QMessageBox::Yes, Answer::Yes, Answer::No},
    }};
    for (const BoxCase& boxCase : cases) {
        watcher.act = [&](QMessageBox& shown) {
            EXPECT_EQ(shown.textFormat(), Qt::PlainText);
            EXPECT_EQ(shown.parentWidget(), &view);
            EXPECT_EQ(shown.icon(), QMessageBox::Critical);
            shown.button(boxCase.pressed)->click();
        };
        EXPECT_EQ(box.ask("<b>one</b>\r\ntwo", boxCase.buttons, Icon::Critical, ""), boxCase.answer);
        watcher.act = nullptr;
        EXPECT_EQ(box.ask("default", boxCase.buttons, Icon::None, ""), boxCase.safest);
        watcher.act = [](QMessageBox& shown) { shown.close(); };
        EXPECT_EQ(box.ask("closed", boxCase.buttons, Icon::None, ""), boxCase.safest);
    }
    EXPECT_EQ(watcher.texts().at(0), QStringLiteral("<b>one</b>\ntwo"));
}

TEST(QtMessageBox, UnattendedWritesToStandardError) {
    MessageBox box(std::make_shared<FaceLink>());
    box.setUnattended(true);
    testing::internal::CaptureStderr();
    EXPECT_EQ(box.ask("No page\r\nreturned.", Buttons::AbortRetryIgnore, Icon::None, ""), Answer::Abort);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "Pixmo: No page\nreturned.\n");
}

TEST(QtKeys, HaveVirtualCodes) {
    const auto code = [](int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        return virtualKey(QKeyEvent(QEvent::KeyPress, key, modifiers));
    };
    EXPECT_EQ(code(Qt::Key_PageDown), 0x22);
    EXPECT_EQ(code(Qt::Key_PageDown, Qt::KeypadModifier), 0x22);
    EXPECT_EQ(code(Qt::Key_W), 0x57);
    EXPECT_EQ(code(Qt::Key_7), 0x37);
    EXPECT_EQ(code(Qt::Key_7, Qt::KeypadModifier), 0x67);
    EXPECT_EQ(code(Qt::Key_Plus, Qt::KeypadModifier), 0x6B);
    EXPECT_EQ(code(Qt::Key_Plus), 0xBB);
    EXPECT_EQ(code(Qt::Key_F10), 0x79);
    EXPECT_EQ(code(Qt::Key_AltGr), 0);
    EXPECT_EQ(shiftState(Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier), 7);
    EXPECT_EQ(shiftState(Qt::ControlModifier | Qt::KeypadModifier), 2);
}

TEST(ProgramIcon, IsTheProgramsPicture) {
    const QImage shown =
        programIcon().pixmap(QSize(64, 64), 1).toImage().convertToFormat(QImage::Format_ARGB32_Premultiplied);
    ASSERT_EQ(shown.sizeInBytes(), 64 * 64 * 4);
    const auto* const pixels = reinterpret_cast<const uint32_t*>(shown.constBits());
    EXPECT_EQ(std::vector(pixels, pixels + shown.sizeInBytes() / 4), programPicture(64));
}

} // namespace
} // namespace pixmo::qt
