#include "apps/pixmo/mainwindow.h"

#include "apps/pixmo/opendialog.h"
#include "apps/pixmo/viewersettings.h"
#include "core/base/product.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QMenuBar>
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
    view_->setThumbsAvailable(true);
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
    addCommand(*menu, "SAVEPAGE", QKeySequence::Save);
    addCommand(*menu, "COPY", QKeySequence::Copy);
    addCommand(*menu, "CANCEL");
    menu->addSeparator();
    QAction* const quit = menu->addAction(tr("&Quit"), this, &QWidget::close);
    quit->setShortcut(QKeySequence::Quit);
}

void MainWindow::makeViewMenu() {
    QMenu* const menu = menuBar()->addMenu(tr("&View"));
    for (const char* key : {"ZOOMIN", "ZOOMOUT", "FITWIDTH", "FITHEIGHT", "FITBEST"})
        addCommand(*menu, key);
    menu->addSeparator();
    for (const char* key : {"ROTL", "ROTR", "GRAYSCALE", "IMAGEINFO"})
        addCommand(*menu, key);
    menu->addSeparator();
    QAction* const refresh = menu->addAction(tr("Re&fresh"), this, [this] { view_->Refresh(); });
    refresh->setShortcut(QKeySequence::Refresh);
    QAction* const fullScreen = menu->addAction(tr("F&ull Screen"), this, [this](bool on) {
        setWindowState(windowState().setFlag(Qt::WindowFullScreen, on));
    });
    fullScreen->setCheckable(true);
    fullScreen->setShortcut(Qt::Key_F11);
}

void MainWindow::makeGoMenu() {
    QMenu* const menu = menuBar()->addMenu(tr("&Go"));
    for (const char* key : {"PAGEFIRST", "PAGEPREV", "PAGENEXT", "PAGELAST"})
        addCommand(*menu, key);
    menu->addSeparator();
    addCommand(*menu, "PAGEGOTO", Qt::CTRL | Qt::Key_G);
}

void MainWindow::makeHelpMenu() {
    QMenu* const menu = menuBar()->addMenu(tr("&Help"));
    addCommand(*menu, "SHOWLOG");
    menu->addSeparator();
    addCommand(*menu, "ABOUT");
}

/// The view may be replaced by another one: what the menus hold outlives it.
void MainWindow::addCommand(QMenu& menu, const char* key, const QKeySequence& shortcut) {
    QAction* const action =
        menu.addAction(QString(), this, [this, key] { view_->action(QLatin1String(key))->trigger(); });
    action->setObjectName(QLatin1String(key));
    action->setShortcut(shortcut);
    commands_.append({action, QLatin1String(key)});
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
        resize(UsualSize.boundedTo(screen()->availableSize() * 0.9));
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

void MainWindow::showState() {
    const int document = view_->docID();
    setWindowTitle(document == 0
                       ? QString::fromLatin1(product::Title)
                       : tr("Document %1 \u2013 %2").arg(document).arg(QLatin1String(product::Title)));
    for (const Command& command : std::as_const(commands_)) {
        const QAction& own = *view_->action(command.key);
        command.action->setText(own.text());
        command.action->setEnabled(own.isEnabled());
        command.action->setVisible(own.isVisible());
        command.action->setCheckable(own.isCheckable());
        command.action->setChecked(own.isChecked());
    }
}

void MainWindow::closeEvent(QCloseEvent* event) {
    ViewerSettings().setValue(GeometrySetting, saveGeometry());
    QMainWindow::closeEvent(event);
}

} // namespace pixmo::viewer
