#include "apps/pixmo/mainwindow.h"

#include "apps/pixmo/opendialog.h"
#include "apps/pixmo/viewersettings.h"
#include "core/base/product.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QInputDialog>
#include <QMenuBar>
#include <QMessageBox>
#include <QUrl>

namespace pixmo::viewer {

namespace {

const QString GeometrySetting = QStringLiteral("Geometry");
const QString EngineSetting = QStringLiteral("LastEngine");
const QString DocumentSetting = QStringLiteral("LastDocument");
const QString PageSetting = QStringLiteral("LastPage");

constexpr QSize UsualSize(900, 1000);

} // namespace

void configure(qt::ImageView& view, const Options& options) {
    if (!options.delimiter.isEmpty())
        view.setDelimiter(options.delimiter);
    if (!options.key.isEmpty())
        view.setPublicKey(options.key);
    if (options.protectedBytes)
        view.setEncBytes(*options.protectedBytes);
    if (options.logLevel)
        view.setMinLogLevel(*options.logLevel);
    if (!options.logFile.isEmpty())
        view.setLogFileName(options.logFile);
}

MainWindow::MainWindow(const Options& options) : options_(options) {
    makeFileMenu();
    makeViewMenu();
    makeGoMenu();
    makeHelpMenu();
    makeView();
    restorePlace();
}

// A view makes the acquaintance of one server: another server gets another view.
void MainWindow::makeView() {
    view_ = new qt::ImageView(this);
    configure(*view_, options_);
    connect(view_, &qt::ImageView::interfaceChanged, this, &MainWindow::showState);
    connect(view_, &qt::ImageView::PageChanged, this, &MainWindow::showState);
    // The former one is deleted when the event is over that asked for this.
    setCentralWidget(view_);
    view_->setFocus();
    showState();
}

void MainWindow::makeFileMenu() {
    QMenu* const menu = menuBar()->addMenu(tr("&File"));
    QAction* const open = menu->addAction(tr("&Open\u2026"), this, &MainWindow::askForDocument);
    open->setShortcut(QKeySequence::Open);
    recentMenu_ = menu->addMenu(tr("&Recent Documents"));
    connect(recentMenu_, &QMenu::aboutToShow, this, &MainWindow::fillRecentMenu);
    menu->addSeparator();
    QAction* const quit = menu->addAction(tr("&Quit"), this, &QWidget::close);
    quit->setShortcut(QKeySequence::Quit);
}

void MainWindow::makeViewMenu() {
    QMenu* const menu = menuBar()->addMenu(tr("&View"));
    QAction* const refresh = menu->addAction(tr("&Refresh"), this, [this] { view_->Refresh(); });
    refresh->setShortcut(QKeySequence::Refresh);
    addCommand(*menu, tr("&Cancel Transfer"), QStringLiteral("CANCEL"));
    menu->addSeparator();
    QAction* const fullScreen = menu->addAction(tr("&Full Screen"), this, [this](bool on) {
        setWindowState(windowState().setFlag(Qt::WindowFullScreen, on));
    });
    fullScreen->setCheckable(true);
    fullScreen->setShortcut(Qt::Key_F11);
}

void MainWindow::makeGoMenu() {
    QMenu* const menu = menuBar()->addMenu(tr("&Go"));
    addCommand(*menu, tr("&Previous Page"), QStringLiteral("PAGEPREV"));
    addCommand(*menu, tr("&Next Page"), QStringLiteral("PAGENEXT"));
    menu->addSeparator();
    pageActions_ = {
        menu->addAction(tr("&First Page"), this, [this] { view_->setPage(1); }),
        menu->addAction(tr("&Last Page"), this, [this] { view_->setPage(view_->pageCount()); }),
        menu->addAction(tr("&Go to Page\u2026"), this, &MainWindow::askForPage),
    };
    pageActions_.last()->setShortcut(Qt::CTRL | Qt::Key_G);
}

void MainWindow::makeHelpMenu() {
    menuBar()->addMenu(tr("&Help"))->addAction(tr("&About Pixmo"), this, &MainWindow::showAbout);
}

QAction* MainWindow::addCommand(QMenu& menu, const QString& text, const QString& key) {
    QAction* const action = menu.addAction(text, this, [this, key] {
        if (QAction* const command = view_->action(key))
            command->trigger();
    });
    commands_.append({action, key});
    return action;
}

void MainWindow::fillRecentMenu() {
    recentMenu_->clear();
    for (const DocumentAddress& document : recent_.load())
        recentMenu_->addAction(tr("%1 \u2013 %2").arg(document.document).arg(QUrl(document.engine).host()),
                               this, [this, document] { open(document); });
    if (recentMenu_->isEmpty()) {
        recentMenu_->addAction(tr("None"))->setEnabled(false);
        return;
    }
    recentMenu_->addSeparator();
    recentMenu_->addAction(tr("&Clear List"), this, [this] { recent_.clear(); });
}

// A place that is on no screen any more is corrected by restoreGeometry.
void MainWindow::restorePlace() {
    const QByteArray geometry = ViewerSettings().value(GeometrySetting).toByteArray();
    if (!options_.size.isEmpty() || !restoreGeometry(geometry))
        resize(UsualSize);
    if (options_.size.isEmpty())
        return;
    view_->setFixedSize(options_.size);
    adjustSize();
    view_->setMinimumSize(0, 0);
    view_->setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
}

void MainWindow::open(const DocumentAddress& document) {
    if (engine_ != document.engine && !engine_.isEmpty())
        makeView();
    engine_ = document.engine;
    recent_.add(document);
    view_->setEngineAddress(document.engine);
    view_->LoadDocumentByDocID(document.document, document.page);
}

void MainWindow::askForDocument() {
    ViewerSettings settings;
    const DocumentAddress kept{settings.value(EngineSetting).toString(),
                               settings.value(DocumentSetting, 1).toInt(),
                               settings.value(PageSetting, 1).toInt()};
    const DocumentAddress shown{engine_, view_->docID(), qMax<int>(view_->page(), 1)};
    const DocumentAddress& last = shown.document == 0 ? kept : shown;
    OpenDialog dialog(last, this);
    if (dialog.exec() != QDialog::Accepted)
        return;
    const DocumentAddress document = dialog.document();
    settings.setValue(EngineSetting, document.engine);
    settings.setValue(DocumentSetting, document.document);
    settings.setValue(PageSetting, document.page);
    open(document);
}

void MainWindow::askForPage() {
    bool chosen = false;
    const int page = QInputDialog::getInt(this, tr("Go to Page"), tr("Page:"), view_->page(), 1,
                                          view_->pageCount(), 1, &chosen);
    if (chosen)
        view_->setPage(static_cast<short>(page));
}

void MainWindow::showState() {
    const int document = view_->docID();
    setWindowTitle(document == 0
                       ? QString::fromLatin1(product::Title)
                       : tr("Document %1 \u2013 %2").arg(document).arg(QLatin1String(product::Title)));
    for (QAction* action : std::as_const(pageActions_))
        action->setEnabled(view_->pageCount() > 1);
    for (const Command& command : std::as_const(commands_)) {
        const QAction* const own = view_->action(command.key);
        command.action->setEnabled(own && own->isEnabled());
    }
}

void MainWindow::showAbout() {
    QMessageBox::about(this, tr("About Pixmo"),
                       tr("<b>%1 %2</b><p>A viewer of document pages from an imaging server.</p>")
                           .arg(QLatin1String(product::Title), QApplication::applicationVersion()));
}

void MainWindow::closeEvent(QCloseEvent* event) {
    ViewerSettings().setValue(GeometrySetting, saveGeometry());
    QMainWindow::closeEvent(event);
}

} // namespace pixmo::viewer
