#pragma once

#include "core/thumbs/dlgthumbs.h"

#include <QAbstractScrollArea>
#include <QImage>
#include <QTimer>
#include <memory>

namespace pixmo::qt {

/// The thumbnails of dlgThumbs: paints those that are to be seen, scrolls them, takes mouse and keyboard.
class ThumbsView : public QAbstractScrollArea {
    Q_OBJECT

public:
    explicit ThumbsView(QWidget* parent);

    /// Held only while it is called; nullptr: nothing is painted any more.
    void setThumbs(const std::shared_ptr<dlgThumbs>& thumbs);
    std::shared_ptr<dlgThumbs> thumbs() const { return thumbs_.lock(); }
    /// The object has changed.
    void mirror();
    /// Tells the object of the room that there is.
    void resizeThumbs();
    /// Of a page, in the viewport.
    QRect cell(int item) const;

Q_SIGNALS:
    void menuRequested(QPoint globalPlace);

protected:
    void changeEvent(QEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    bool viewportEvent(QEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void paintThumbs(dlgThumbs& thumbs, QPainter& painter);
    void startBand(dlgThumbs& thumbs, QPoint place);
    void scrollWithBand();
    void tellAccessibility(const dlgThumbs& thumbs);

    std::weak_ptr<dlgThumbs> thumbs_;
    QPoint pressed_;
    QPoint pointer_;
    Qt::KeyboardModifiers pressedWith_;
    bool pressing_ = false;
    bool mirroring_ = false;
    int wheel_ = 0; ///< eighths of a degree that made no step yet
    double ratio_ = 0;
    QImage image_;
    QTimer bandScroll_;
    int toldFocus_ = -1;
    size_t toldSelected_ = 0;
};

} // namespace pixmo::qt
