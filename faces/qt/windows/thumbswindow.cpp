#include "faces/qt/windows/thumbswindow.h"

#include "core/base/partnames.h"
#include "faces/qt/ports/texts.h"
#include "faces/qt/windows/commandtoolbar.h"
#include "faces/qt/windows/popupmenu.h"
#include "faces/qt/windows/thumbsview.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QPointer>
#include <QScreen>
#include <QVBoxLayout>
#include <algorithm>

namespace pixmo::qt {

namespace {

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
    : QWidget(parent, Qt::Tool), toolbar_(new CommandToolbar(this)), view_(new ThumbsView(this)) {
    setAttribute(Qt::WA_QuitOnClose, false);
    setMinimumSize(dlgThumbs::LeastSize.width, dlgThumbs::LeastSize.height);
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->setSpacing(0);
    layout->addWidget(toolbar_);
    layout->addWidget(view_, 1);
    toolbar_->setAccessibleName(toQt(part_name::ThumbnailCommands));
    setFocusProxy(view_);
    connect(toolbar_, &CommandToolbar::commandGiven, this, [this](const QString& key) { run(key); });
    toolbar_->setMenu([this] { return menu(&dlgThumbs::toolbarMenu); },
                      [this](const std::string& key) { run(toQt(key)); });
    connect(view_, &ThumbsView::menuRequested, this, [this](QPoint place) {
        popUp(menu(&dlgThumbs::viewMenu), place, this, [this](const std::string& key) { run(toQt(key)); });
    });
}

void ThumbsWindow::run(const QString& key) {
    if (const auto thumbs = thumbs_.lock())
        thumbs->run(key.toStdString());
}

std::vector<MenuItem> ThumbsWindow::menu(std::vector<MenuItem> (dlgThumbs::*which)() const) const {
    const auto thumbs = thumbs_.lock();
    return thumbs ? (*thumbs.*which)() : std::vector<MenuItem>();
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
    const QRect beside = parentWidget() ? parentWidget()->window()->frameGeometry() : QRect();
    const FormPosition form = thumbs.LoadFormPosition(
        screenAreas(), dlgThumbs::usualPlace({beside.x(), beside.y(), beside.width(), beside.height()}));
    resize(form.width, form.height);
    move(form.left, form.top);
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
    toolbar_->mirror(thumbs->toolbar());
    toolbar_->setVisible(thumbs->mnuPopToolbar);
    view_->mirror();
}

} // namespace pixmo::qt
