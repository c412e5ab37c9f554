#pragma once

#include "core/control/imageview.h"

#include <QLabel>
#include <QProgressBar>

namespace pixmo::qt {

/// The row below the page: read-out, status text, progress and zoom.
class StatusRow {
public:
    /// The children belong to the parent.
    explicit StatusRow(QWidget& parent);

    void mirror(const pixmo::ImageView& control);
    /// Whether another zoom is shown than before; then the row is laid out anew.
    bool mirrorZoom(const pixmo::ImageView& control);
    void measure(LayoutMeasures& measures) const;
    void place(const ControlLayout& layout, QPoint origin);

private:
    void showStatus();

    QLabel* readOut_;
    QLabel* status_;
    QProgressBar* progress_;
    QLabel* zoom_;
    QString statusText_;
    bool progressShown_ = false;
};

} // namespace pixmo::qt
