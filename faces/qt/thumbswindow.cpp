#include "faces/qt/thumbswindow.h"

#include "faces/qt/commandicon.h"
#include "faces/qt/texts.h"
#include "faces/qt/thumbsview.h"

#include <QAction>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QPointer>
#include <QScreen>
#include <QToolBar>
#include <QVBoxLayout>
#include <algorithm>

namespace pixmo::qt {

namespace {

constexpr int LargeIcon = 32;
constexpr int SmallIcon = 16;
constexpr QSize UsualSize(420, 560);
constexpr QSize LeastSize(160, 160);

/// The usable areas, the one that the user starts with first.
std::vector<Rectangle> screenAreas() {
    std::vector<Rectangle> areas;
    for (const QScreen* const screen : QGuiApplication::screens()) {
        const QRect area = screen->availableGeometry();
        const Rectangle rectangle = {area.x(), area.y(), area.width(), area.height()};
        areas.insert(screen == QGuiApplication::primaryScreen() ? areas.begin() : areas.end(), rectangle);
    }
    return areas;
}

} // namespace

ThumbsWindow::ThumbsWindow(QWidget* parent)
    : QWidget(parent, Qt::Tool), toolbar_(new QToolBar(this)), view_(new ThumbsView(this)),
      toolbarMenu_(new QMenu(this)), viewMenu_(new QMenu(this)) {
    setAttribute(Qt::WA_QuitOnClose, false);
    setMinimumSize(LeastSize);
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->setSpacing(0);
    layout->addWidget(toolbar_);
    layout->addWidget(view_, 1);
    toolbar_->setMovable(false);
    toolbar_->setAccessibleName(tr("Thumbnail commands"));
    toolbar_->setContextMenuPolicy(Qt::CustomContextMenu);
    setFocusProxy(view_);
    makeActions();
    connect(toolbar_, &QWidget::customContextMenuRequested, this,
            [this](QPoint place) { showMenu(*toolbarMenu_, toolbar_->mapToGlobal(place)); });
    connect(view_, &ThumbsView::menuRequested, this, [this](QPoint place) { showMenu(*viewMenu_, place); });
}

QAction* ThumbsWindow::makeAction(const QString& key, const QString& text, const QKeySequence& keys,
                                  Deed deed) {
    auto* const action = new QAction(commandIcon(key), text, this);
    action->setObjectName(key);
    action->setShortcut(keys);
    action->setShortcutContext(Qt::WindowShortcut);
    connect(action, &QAction::triggered, this, [this, deed] {
        if (const auto thumbs = thumbs_.lock())
            deed(*thumbs);
    });
    addAction(action);
    return action;
}

QAction* ThumbsWindow::makeCheck(const QString& text, bool dlgThumbs::*flag) {
    auto* const action = new QAction(text, this);
    action->setCheckable(true);
    connect(action, &QAction::triggered, this, [this, flag](bool checked) {
        if (const auto thumbs = thumbs_.lock())
            (*thumbs).*flag = checked;
        mirror();
    });
    return action;
}

void ThumbsWindow::makeActions() {
    larger_ = makeAction(QStringLiteral("LARGER"), tr("&Larger"), QKeySequence::ZoomIn,
                         [](dlgThumbs& thumbs) { thumbs.larger(); });
    smaller_ = makeAction(QStringLiteral("SMALLER"), tr("&Smaller"), QKeySequence::ZoomOut,
                          [](dlgThumbs& thumbs) { thumbs.smaller(); });
    selectAll_ = makeAction(QStringLiteral("SELECTALL"), tr("Select &All"), QKeySequence::SelectAll,
                            [](dlgThumbs& thumbs) { thumbs.selectAll(); });
    printSelection_ = makeAction(QStringLiteral("PRINT"), tr("&Print Selection\u2026"), QKeySequence::Print,
                                 [](dlgThumbs& thumbs) { thumbs.printSelection(); });
    for (QAction* const action : {larger_, smaller_, printSelection_, selectAll_}) {
        action->setIconText(action->iconText().remove(QChar(0x2026)));
        toolbar_->addAction(action);
    }
    toolbar_->insertSeparator(printSelection_);
    captions_ = makeCheck(tr("Button &Captions"), &dlgThumbs::mnuPopup1ButtonCaptions);
    largeButtons_ = makeCheck(tr("&Large Buttons"), &dlgThumbs::mnuPopup1LargeButtons);
    toolbarShown_ = makeCheck(tr("&Toolbar"), &dlgThumbs::mnuPopToolbar);
    toolbarMenu_->addActions({captions_, largeButtons_});
    viewMenu_->addActions({larger_, smaller_});
    viewMenu_->addSeparator();
    viewMenu_->addActions({selectAll_, printSelection_});
    viewMenu_->addSeparator();
    viewMenu_->addAction(toolbarShown_);
}

void ThumbsWindow::open(const std::shared_ptr<dlgThumbs>& thumbs) {
    if (thumbs_.lock() != thumbs)
        connectTo(thumbs);
    if (!isVisible()) {
        place(*thumbs);
        show();
    }
    thumbs->setShown(true);
    view_->resizeThumbs();
    mirror();
    raise();
    activateWindow();
    view_->setFocus();
}

void ThumbsWindow::connectTo(const std::shared_ptr<dlgThumbs>& thumbs) {
    thumbs_ = thumbs;
    view_->setThumbs(thumbs);
    thumbs->Changed.connect([window = QPointer<ThumbsWindow>(this)] {
        if (window)
            window->mirror();
    });
}

void ThumbsWindow::end() {
    savePlace();
    thumbs_.reset();
    view_->setThumbs({});
    hide();
}

/// Beside the viewer at first.
void ThumbsWindow::place(const dlgThumbs& thumbs) {
    QPoint corner(60, 60);
    if (parentWidget())
        corner = parentWidget()->window()->frameGeometry().topRight() + QPoint(8, 0);
    const FormPosition usual = {corner.x(), corner.y(), UsualSize.width(), UsualSize.height()};
    const FormPosition form = thumbs.LoadFormPosition(screenAreas(), usual);
    resize(form.width, form.height);
    move(form.left, form.top);
    placed_ = true;
}

void ThumbsWindow::savePlace() {
    const auto thumbs = thumbs_.lock();
    if (thumbs && isVisible())
        thumbs->SaveFormPosition({pos().x(), pos().y(), width(), height()});
}

void ThumbsWindow::closeEvent(QCloseEvent* event) {
    savePlace();
    if (const auto thumbs = thumbs_.lock()) {
        thumbs->setShown(false);
        thumbs->SaveSettings();
    }
    QWidget::closeEvent(event);
}

void ThumbsWindow::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape)
        close();
    else
        QWidget::keyPressEvent(event);
}

void ThumbsWindow::mirror() {
    const auto thumbs = thumbs_.lock();
    if (!thumbs)
        return;
    setWindowTitle(toQt(thumbs->Caption()));
    const int icon = thumbs->mnuPopup1LargeButtons ? LargeIcon : SmallIcon;
    toolbar_->setIconSize({icon, icon});
    toolbar_->setToolButtonStyle(thumbs->mnuPopup1ButtonCaptions ? Qt::ToolButtonTextUnderIcon
                                                                 : Qt::ToolButtonIconOnly);
    toolbar_->setVisible(thumbs->mnuPopToolbar);
    captions_->setChecked(thumbs->mnuPopup1ButtonCaptions);
    largeButtons_->setChecked(thumbs->mnuPopup1LargeButtons);
    toolbarShown_->setChecked(thumbs->mnuPopToolbar);
    larger_->setEnabled(thumbs->itemSizeFactor() < dlgThumbs::LargestFactor);
    smaller_->setEnabled(thumbs->itemSizeFactor() > dlgThumbs::SmallestFactor);
    selectAll_->setEnabled(thumbs->grid().itemCount() > 0);
    printSelection_->setEnabled(thumbs->canPrintSelection());
    view_->mirror();
}

void ThumbsWindow::showMenu(QMenu& menu, QPoint place) {
    menu.popup(place);
}

} // namespace pixmo::qt
