#pragma once

#include "core/control/imageview.h"

#include <QAbstractScrollArea>
#include <QImage>
#include <memory>

namespace pixmo::qt {

/// The page: paints what the control composes, scrolls it and takes the keyboard.
class PageView : public QAbstractScrollArea {
    Q_OBJECT

public:
    explicit PageView(QWidget* parent);

    /// nullptr: the control is gone, nothing is painted any more.
    void setControl(const std::shared_ptr<pixmo::ImageView>& control);
    /// Of the viewport, in device pixels.
    QSize deviceSize() const { return deviceSize(viewport()->size()); }
    void setPointer(int32_t code);
    /// The notice may have changed.
    void refreshNotice();

protected:
    void changeEvent(QEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
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
    QSize deviceSize(QSize size) const;
    void paintPicture(QPainter& painter);
    void paintNotice(QPainter& painter, const QString& notice);
    QPointF devicePoint(QPointF point) const { return point * devicePixelRatioF(); }
    void showBars();
    void mirrorBars();

    std::weak_ptr<pixmo::ImageView> control_;
    QImage image_;
    double ratio_ = 0;
    bool mirroring_ = false;
};

} // namespace pixmo::qt
