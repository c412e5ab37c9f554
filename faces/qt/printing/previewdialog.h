#pragma once

#include "core/printing/printpreview.h"

#include <QDialog>
#include <QLabel>
#include <QPushButton>
#include <QTimer>

namespace pixmo::qt {

/// Shows the sheets of a job, one at a time.
class PreviewDialog : public QDialog {
public:
    /// The preview outlives the window.
    PreviewDialog(PrintPreview& preview, QWidget* parent);

    /// The sheet as it is printed, that many pixels high; null when it cannot be drawn.
    static QImage sheet(PrintPreview& preview, int32_t number, int height);

    void done(int result) override;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void turnTo(int32_t sheet);
    int sheetHeight() const;
    void showSheet();

    PrintPreview& preview_;
    QTimer drawSoon_;   ///< a window that is being resized draws once
    QTimer sayLoading_; ///< while the sheet of before stands there too long
    int32_t sheet_ = 0;
    QLabel* picture_;
    QLabel* text_;
    QPushButton* previous_;
    QPushButton* next_;
};

} // namespace pixmo::qt
