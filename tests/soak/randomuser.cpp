#include "tests/soak/randomuser.h"

#include "core/control/commands.h"
#include "tests/qt/waiting.h"

#include <QAbstractButton>
#include <QAbstractScrollArea>
#include <QAction>
#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QToolBar>
#include <QWheelEvent>
#include <array>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <unistd.h>

namespace pixmo::qt {

namespace {

constexpr int DeepestStep = 3;
constexpr std::array<int, 7> Documents = {1001, 1002, 1003, 1004, 1006, 9999, 0};

Qt::KeyboardModifiers modifiersOf(int bits) {
    Qt::KeyboardModifiers modifiers;
    modifiers.setFlag(Qt::ShiftModifier, (bits & 1) != 0);
    modifiers.setFlag(Qt::ControlModifier, (bits & 2) != 0);
    modifiers.setFlag(Qt::AltModifier, (bits & 4) != 0);
    return modifiers;
}

/// Caches of the libraries fill up at first; what grows in the second half of a long run grows for ever.
constexpr int LongRun = 10'000;
constexpr int64_t AllowedGrowth = int64_t{16} << 20;

int64_t residentBytes() {
    std::ifstream facts("/proc/self/statm");
    int64_t whole = 0;
    int64_t resident = 0;
    facts >> whole >> resident;
    return resident * sysconf(_SC_PAGESIZE);
}

int filesLeft() {
    int count = 0;
    for (const auto& entry :
         std::filesystem::recursive_directory_iterator(std::filesystem::temp_directory_path()))
        count += entry.path().string().find("pixmo-pages-") != std::string::npos ? 1 : 0;
    return count;
}

bool fail(const char* what) {
    std::printf("  %s\n", what);
    return false;
}

} // namespace

RandomUser::RandomUser(uint32_t seed) : random_(seed) {
    // A timer rests while its own slot waits: what may wait comes in an event of its own.
    QObject::connect(&attention_, &QTimer::timeout, &attention_,
                     [this] { QTimer::singleShot(0, &attention_, [this] { attend(); }); });
    attention_.start(2);
}

void RandomUser::attend() {
    answerWindows();
    // More happens while a call waits for the server or for the user.
    if (depth_ > 0 && depth_ < DeepestStep && chance(8) == 0)
        step();
}

void RandomUser::begin() {
    view_ = new ImageView;
    view_->setEngineAddress(engine_.address());
    view_->setFetchDelay(2);
    view_->setResizeDelay(2);
    view_->setStallTimeout(100);
    view_->setThumbsAvailable(true);
    view_->setBookmarkAvailable(true);
    view_->resize(700, 600);
    view_->show();
}

bool RandomUser::run(int steps) {
    begin();
    int64_t halfway = 0;
    while (steps_ < steps && sane_) {
        step();
        QTest::qWait(chance(4) == 0 ? chance(6) : 0);
        if (depth_ == 0 && chance(400) == 0) {
            delete view_;
            begin();
        }
        sane_ = sane_ && isSane();
        if (steps_ > steps / 2 && halfway == 0)
            halfway = residentBytes();
    }
    const int64_t growth = residentBytes() - halfway;
    std::printf("%d steps, %d windows and menus answered, %lld bytes grown in the second half\n", steps_,
                windows_, static_cast<long long>(growth));
    if (steps >= LongRun && growth > AllowedGrowth)
        return fail("memory grows");
    return sane_ && worksAfterAll();
}

void RandomUser::step() {
    constexpr std::array<void (RandomUser::*)(), 10> Kinds = {
        &RandomUser::command, &RandomUser::command, &RandomUser::key,   &RandomUser::key,  &RandomUser::key,
        &RandomUser::mouse,   &RandomUser::mouse,   &RandomUser::wheel, &RandomUser::host, &RandomUser::host};
    ++steps_;
    ++depth_;
    if (depth_ == 1 && chance(60) == 0)
        fault();
    // Behind a modal window nothing else can be used.
    else if (!QApplication::activeModalWidget() || chance(4) == 0)
        (this->*Kinds[static_cast<size_t>(chance(Kinds.size()))])();
    --depth_;
}

void RandomUser::command() {
    const auto rows = commandTable();
    const std::string_view key = rows[static_cast<size_t>(chance(static_cast<int>(rows.size())))].key;
    view_->action(QString::fromUtf8(key.data(), static_cast<qsizetype>(key.size())))->trigger();
}

void RandomUser::key() {
    constexpr std::array<Qt::Key, 16> Keys = {Qt::Key_PageUp, Qt::Key_PageDown, Qt::Key_Home, Qt::Key_End,
                                              Qt::Key_Left,   Qt::Key_Right,    Qt::Key_Up,   Qt::Key_Down,
                                              Qt::Key_D,      Qt::Key_T,        Qt::Key_C,    Qt::Key_G,
                                              Qt::Key_H,      Qt::Key_W,        Qt::Key_P,    Qt::Key_Escape};
    const int modifiers = chance(2) == 0 ? 0 : chance(8);
    QTest::keyClick(&page(), Keys[static_cast<size_t>(chance(Keys.size()))], modifiersOf(modifiers));
}

void RandomUser::mouse() {
    QWidget* target = page().viewport();
    if (chance(3) == 0)
        if (QWidget* const button =
                view_->findChild<QToolBar*>()->childAt(somewhere(*view_->findChild<QToolBar*>())))
            target = button;
    constexpr std::array<Qt::MouseButton, 3> Buttons = {Qt::LeftButton, Qt::MiddleButton, Qt::RightButton};
    const Qt::MouseButton button = Buttons[static_cast<size_t>(chance(Buttons.size()))];
    const QPoint from = somewhere(*target);
    const QPoint to = somewhere(*target);
    switch (chance(4)) {
    case 0:
        QTest::mouseDClick(target, button, {}, from);
        break;
    case 1:
        QTest::mousePress(target, button, {}, from);
        QTest::mouseMove(target, to);
        break; // released some time, or never
    case 2: {
        QContextMenuEvent event(QContextMenuEvent::Mouse, from, target->mapToGlobal(from));
        QApplication::sendEvent(target, &event);
        break;
    }
    default:
        QTest::mousePress(target, button, {}, from);
        QTest::mouseMove(target, to);
        QTest::mouseRelease(target, button, {}, to);
    }
}

void RandomUser::wheel() {
    QWidget& target = *page().viewport();
    const QPointF place = somewhere(target);
    QWheelEvent event(place, target.mapToGlobal(place), {}, {0, 120 * (chance(9) - 4)}, Qt::NoButton,
                      modifiersOf(chance(4)), Qt::NoScrollPhase, false);
    QApplication::sendEvent(&target, &event);
}

void RandomUser::host() {
    switch (chance(9)) {
    case 0:
        view_->resize(1 + chance(1000), 1 + chance(800));
        break;
    case 1:
    case 2:
        view_->LoadDocumentByDocID(Documents[static_cast<size_t>(chance(Documents.size()))], chance(15) - 1);
        break;
    case 3:
        view_->setPage(static_cast<short>(chance(15) - 1));
        break;
    case 4:
        chance(2) == 0 ? view_->Clear() : view_->clearCache();
        break;
    case 5:
        view_->setThumbsAvailable(chance(2) == 0);
        view_->setBookmarkAvailable(chance(2) == 0);
        break;
    case 6:
        view_->setControlEnabled(chance(4) != 0);
        view_->setBorderStyle(static_cast<short>(chance(3)));
        break;
    case 7:
        view_->setFetchDelay(chance(20));
        view_->setEncBytes(chance(4) == 0 ? chance(4000) - 1 : 1640);
        break;
    default:
        view_->setBackColor(static_cast<uint>(chance(0xFFFFFF)));
        view_->Refresh();
    }
}

void RandomUser::fault() {
    constexpr std::array<const char*, 14> Kinds = {"stall",   "delay",     "drip",     "reset", "close",
                                                   "empty",   "http500",   "errtext",  "er",    "wrongkey",
                                                   "garbage", "truncated", "redirect", "html"};
    constexpr std::array<const char*, 4> Requests = {"IC", "PC", "GP", "ALL"};
    QByteArray faults;
    for (int count = chance(3); count > 0; --count) {
        const std::string kind = Kinds[static_cast<size_t>(chance(Kinds.size()))];
        faults +=
            QByteArray::fromStdString(kind) + ':' + Requests[static_cast<size_t>(chance(Requests.size()))];
        if (kind == "delay" || kind == "drip")
            faults += kind == "delay" ? "=20" : "=20000";
        faults += '@' + QByteArray::number(1 + chance(6)) + '\n';
    }
    engine_.setFaults(faults);
}

void RandomUser::answerWindows() {
    if (auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget())) {
        ++windows_;
        const QList<QAction*> actions = menu->actions();
        QAction* const chosen =
            actions.isEmpty() ? nullptr : actions.at(chance(static_cast<int>(actions.size())));
        menu->close();
        if (chosen && chance(2) == 0)
            chosen->trigger();
    } else if (QWidget* const dialog = QApplication::activeModalWidget(); dialog && chance(3) == 0) {
        ++windows_;
        answerDialog(*dialog);
    }
}

void RandomUser::answerDialog(QWidget& dialog) {
    const bool usable = !qobject_cast<QFileDialog*>(&dialog);
    if (auto* const field = dialog.findChild<QLineEdit*>(); usable && field && chance(2) == 0)
        QTest::keyClicks(field, QString::number(chance(40)));
    QList<QAbstractButton*> buttons;
    for (auto* const button : dialog.findChildren<QAbstractButton*>())
        if (button->isVisible() && button->isEnabled())
            buttons.append(button);
    if (usable && !buttons.isEmpty() && chance(2) == 0)
        buttons.at(chance(static_cast<int>(buttons.size())))->click();
    else
        dialog.close();
}

// What holds whatever happens.
bool RandomUser::isSane() {
    const QString readOut = QStringLiteral("Page %1 of %2").arg(view_->page()).arg(view_->pageCount());
    if (view_->readOut() != readOut)
        return fail("the read-out is not that of the page");
    if (view_->isPageDisplayed() && !view_->notice().isEmpty())
        return fail("the notice veils the page that is there");
    if (view_->docID() == 0 && view_->isPageDisplayed())
        return fail("a page is displayed without a document");
    if (view_->pageCount() > 0 && view_->page() > view_->pageCount() && view_->isPageDisplayed())
        return fail("a page beyond the last one is displayed");
    if (view_->isIdle() && view_->action(QStringLiteral("CANCEL"))->isEnabled())
        return fail("idle, but something can be cancelled");
    return true;
}

bool RandomUser::worksAfterAll() {
    engine_.setFaults("");
    if (!waitFor([] { return !QApplication::activeModalWidget() && !QApplication::activePopupWidget(); }))
        return fail("a window does not close");
    view_->setEncBytes(1640);
    view_->LoadDocumentByDocID(1002, 2);
    if (!waitFor([this] { return view_->isIdle() && view_->isPageDisplayed() && view_->page() == 2; }))
        return fail("no page can be displayed any more");
    delete view_;
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return filesLeft() == 0 || fail("page files are left");
}

QAbstractScrollArea& RandomUser::page() const {
    return *view_->findChild<QAbstractScrollArea*>(QStringLiteral("lvrImage"));
}

QPoint RandomUser::somewhere(const QWidget& widget) {
    return {chance(qMax(1, widget.width())), chance(qMax(1, widget.height()))};
}

} // namespace pixmo::qt
