#pragma once

#include "core/control/imageview.h"

#include <QPlainTextEdit>

namespace pixmo::qt {

/// The control's trace, while debugging is on. Its keys are those of the page.
class DebugPane : public QPlainTextEdit {
    Q_OBJECT

public:
    /// The page outlives the pane.
    DebugPane(QWidget* parent, QWidget* page);

    void mirror(const pixmo::ImageView& control);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;

private:
    void handToPage(QKeyEvent* event);

    QWidget* page_;
};

} // namespace pixmo::qt
