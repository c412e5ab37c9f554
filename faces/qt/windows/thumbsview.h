#pragma once

#include "core/thumbs/dlgthumbs.h"
#include "faces/qt/windows/scrolledview.h"

#include <memory>

namespace pixmo::qt {

/// The thumbnails of dlgThumbs: shows those that are to be seen, scrolls them, takes mouse and keyboard.
class ThumbsView : public ScrolledView {
    Q_OBJECT

public:
    explicit ThumbsView(QWidget* parent);

    /// Held only while it is called; nullptr: nothing is painted any more.
    void setThumbs(const std::shared_ptr<dlgThumbs>& thumbs) { thumbs_ = thumbs; }
    std::shared_ptr<dlgThumbs> thumbs() const { return thumbs_.lock(); }
    /// The object has changed.
    void mirror();
    /// Tells the object of the room that there is.
    void resizeThumbs();

Q_SIGNALS:
    void menuRequested(QPoint globalPlace);

protected:
    void contextMenuEvent(QContextMenuEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void scrolled() override;
    bool viewportEvent(QEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void tellAccessibility(dlgThumbs& thumbs);

    std::weak_ptr<dlgThumbs> thumbs_;
    double ratio_ = 0;
};

/// A place of the core in a widget.
inline QRect toQt(const Rectangle& place) {
    return {place.left, place.top, place.width, place.height};
}

} // namespace pixmo::qt
