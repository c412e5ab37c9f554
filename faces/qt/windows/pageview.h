#pragma once

#include "core/control/imageview.h"
#include "faces/qt/windows/scrolledview.h"

#include <memory>

namespace pixmo::qt {

/// The page: shows what the control composes, scrolls it and takes mouse and keyboard.
class PageView : public ScrolledView {
    Q_OBJECT

public:
    explicit PageView(QWidget* parent);

    /// nullptr: the control is gone, nothing is painted any more.
    void setControl(const std::shared_ptr<pixmo::ImageView>& control);
    /// The notice may have changed.
    void refreshNotice();

protected:
    void contextMenuEvent(QContextMenuEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
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
    void showBars();
    void mirrorBars();

    std::weak_ptr<pixmo::ImageView> control_;
    double ratio_ = 0;
};

} // namespace pixmo::qt
