#pragma once

#include "core/printing/printpreview.h"

#include <QDialog>
#include <QLabel>
#include <QPushButton>

namespace pixmo::qt {

/// Shows the sheets of a job, one at a time.
class PreviewDialog : public QDialog {
public:
    /// The preview outlives the window.
    PreviewDialog(PrintPreview& preview, QWidget* parent);

    /// The sheet as it is printed, that many pixels high; null when it cannot be drawn.
    static QImage sheet(PrintPreview& preview, int32_t number, int height);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void turnTo(int32_t sheet);
    void showSheet();

    PrintPreview& preview_;
    int32_t sheet_ = 0;
    QLabel* picture_;
    QLabel* text_;
    QPushButton* previous_;
    QPushButton* next_;
};

} // namespace pixmo::qt
