#pragma once

#include "core/thumbs/dlgthumbs.h"

#include <QWidget>
#include <memory>

namespace pixmo::qt {

class CommandToolbar;
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
    void run(const QString& key);
    std::vector<MenuItem> menu(std::vector<MenuItem> (dlgThumbs::*which)() const) const;
    void connectTo(const std::shared_ptr<dlgThumbs>& thumbs);
    void place(const dlgThumbs& thumbs);
    void savePlace();
    void mirror();

    std::weak_ptr<dlgThumbs> thumbs_;
    CommandToolbar* toolbar_;
    ThumbsView* view_;
};

} // namespace pixmo::qt
