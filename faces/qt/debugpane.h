#pragma once

#include "core/control/imageview.h"

#include <QPlainTextEdit>

namespace pixmo::qt {

/// The control's trace, while debugging is on.
class DebugPane : public QPlainTextEdit {
    Q_OBJECT

public:
    explicit DebugPane(QWidget* parent);

    void mirror(const pixmo::ImageView& control);
};

} // namespace pixmo::qt
