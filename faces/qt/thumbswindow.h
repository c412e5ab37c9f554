#pragma once

#include "core/thumbs/dlgthumbs.h"

#include <QWidget>
#include <memory>

class QAction;
class QMenu;
class QToolBar;

namespace pixmo::qt {

class ThumbsView;

/// The window of dlgThumbs: its toolbar, its menus and the thumbnails. Stays above its parent's window.
class ThumbsWindow : public QWidget {
    Q_OBJECT

public:
    explicit ThumbsWindow(QWidget* parent);

    ThumbsView& view() const { return *view_; }
    /// Shows the window where it was last, or brings it to the front.
    void open(const std::shared_ptr<dlgThumbs>& thumbs);
    /// Closes the window; nothing reaches the object any more.
    void end();

protected:
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    /// What an action does to the object.
    using Deed = void (*)(dlgThumbs&);

    QAction* makeAction(const QString& key, const QString& text, const QKeySequence& keys, Deed deed);
    QAction* makeCheck(const QString& text, bool dlgThumbs::*flag);
    void makeActions();
    void connectTo(const std::shared_ptr<dlgThumbs>& thumbs);
    void place(const dlgThumbs& thumbs);
    void savePlace();
    void mirror();
    void showMenu(QMenu& menu, QPoint place);

    std::weak_ptr<dlgThumbs> thumbs_;
    QToolBar* toolbar_;
    ThumbsView* view_;
    QMenu* toolbarMenu_;
    QMenu* viewMenu_;
    QAction* larger_ = nullptr;
    QAction* smaller_ = nullptr;
    QAction* selectAll_ = nullptr;
    QAction* printSelection_ = nullptr;
    QAction* captions_ = nullptr;
    QAction* largeButtons_ = nullptr;
    QAction* toolbarShown_ = nullptr;
    bool placed_ = false;
};

} // namespace pixmo::qt
